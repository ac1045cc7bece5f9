// FormVorna, the main window as data: every control, menu item and icon-bar button with the
// properties that commands read and write. The Qt window mirrors it.
#pragma once

#include "platform/control.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace vorna {

// System colours the answer line switches between.
constexpr Rgb kWindowColour = 0xFFFFFF;     // &H80000005
constexpr Rgb kButtonFaceColour = 0xF0F0F0; // &H8000000F

struct FormVorna {
    std::string caption;
    double width = 15360, height = 10800; // outer size, twips
    double screenWidth = 28800;
    bool minimised = false;

    // Drawing surfaces and their overlays. The overlays are in Disegno's drawing units; the
    // line LineSposta keeps its start in left/top and its end in width/height.
    Control Disegno, LineSposta, Shape, Picture1;
    // Status and answer line.
    std::array<Control, 2> Frame2;
    Control FunAttiva, SottoFunAttiva, FrameInput, Domanda, Risposta, Label5, StringaSel, Line2;
    Control FrameCoord, Label6, LabCoord;
    // View angles.
    std::array<Control, 3> Angolo, Label1, Label2;
    // Analogy parameters.
    Control FrameSel;
    std::array<Control, 4> OpzMetodo;
    Control analLun, AnalSezAste, AnalColAste, analLinAste;
    // View filters.
    Control FrameAtt, NodiAtt, AsteAtt, GusciAtt, ElSelez, ElNonSelez;
    std::array<Control, 4> Label3; // "Intervalli di coordinate" and the axis names
    std::array<Control, 2> IntX, IntY, IntZ;
    Control TuttoX, TuttoY, TuttoZ;
    std::array<Control, 3> Label4; // "-" between the interval boxes
    // Base-node schema.
    Control Label7;
    std::array<Control, 31> LabelTipo; // 1..30

    // Menus and their items.
    Control File, Salva, SalvaGeom, SalvaSoll, ScriColl, SalvaDisegno, Esci;
    Control Visualizza, Ottimizza, ZoomIn, Sposta, Ridis;
    Control Operazioni, NodoBase, RimNodoBase, AsteNodoBase, Aggiungi, Rimuovi, RimTutto, Inverti,
        EvidTipo, TipiNodo, Interrompi;
    Control Selezioni, Finestra, Colore, Bianco, Blu, Rosso, Verde, Giallo, VerdeScuro, Magenta,
        Azzurro, Ara, TuttiCol, TipoPunto, TipoPt1, TipoPt2, TipoPt3, TipoPt4, TuttiPt, SchVincolo,
        Nome, Tutto;
    Control Opzioni, VisCoord, VisAssi, BarraLat, BarraIcone, Trappola, Rappresentazione;

    // Icon bar: the bar itself and its buttons by key.
    Control Toolbar1;
    Control btnImportaTutto, btnImportaGeom, btnImportaSoll, btnEsci, btnOttimizza, btnZoom,
        btnSposta, btnRidisegna, btnAggiungi, btnRimuovi, btnRimuoviTutto, btnInvertiSel,
        btnInterrompi, btnAggiungiBarraLat;
};

// Sets a control's left, top, width and height.
void Place(Control &c, double left, double top, double width, double height);

// The form as it is created, before start-up runs: captions, checks and enabling.
FormVorna InitialForm();

// Every control, menu item and button in a fixed order, with its name as the program knows it
// ("Angolo(1)", "LabelTipo(3)", "Toolbar1.Interrompi").
void ForEachControl(FormVorna &form, const std::function<void(std::string_view, Control &)> &fn);
// The control of that name, or nothing.
Control *FindControl(FormVorna &form, std::string_view name);

// The icon-bar buttons in bar order with their keys.
struct ToolbarButton {
    const char *key;
    Control FormVorna::*button;
};
const std::array<ToolbarButton, 14> &ToolbarButtons();

} // namespace vorna
