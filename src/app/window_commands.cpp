// Commands of the main window itself: end of the program, the two bar toggles, the enabling of
// commands by base-node state and the layout rule on resizing.
#include "app/command_steps.h"
#include "app/commands.h"

#include <algorithm>

namespace vorna {

namespace {

// Minimum outer size of the window, twips.
constexpr double kMinWidth = 5520, kMinHeight = 7944, kTooNarrow = 5496;
constexpr double kSideBarWidth = 2900, kIconBarHeight = 400;

} // namespace

void Esci_Click(Program &p) {
    EndProgram(p, 0);
}

void UpdateBaseNodeCommands(Program &p) {
    FormVorna &f = p.form;
    bool chosen = p.connection.baseNode >= 0;
    f.NodoBase.enabled = !chosen;
    for (Control *c : {&f.RimNodoBase, &f.AsteNodoBase, &f.Aggiungi, &f.ScriColl, &f.Rimuovi,
                       &f.RimTutto, &f.Inverti, &f.EvidTipo, &f.PercheNo, &f.Salva, &f.SalvaGeom,
                       &f.SalvaSoll, &f.btnImportaTutto, &f.btnImportaGeom, &f.btnImportaSoll,
                       &f.btnAggiungi, &f.btnRimuovi, &f.btnRimuoviTutto, &f.btnInvertiSel})
        c->enabled = chosen;
}

void UpdateListCommands(Program &p) {
    const ConnectionState &s = p.connection;
    p.form.Revisione.enabled =
        std::any_of(s.analogousNodes.begin(), s.analogousNodes.end(),
                    [&](const AnalogousNode &r) { return r.node != s.baseNode; });
}

void BarraIcone_Click(Program &p) {
    FormVorna &f = p.form;
    f.Toolbar1.visible = !f.Toolbar1.visible;
    f.BarraIcone.checked = f.Toolbar1.visible;
    double shift = f.Toolbar1.visible ? kIconBarHeight : -kIconBarHeight;
    for (Control *c : {&f.Disegno, &f.FrameInput, &f.FrameSel, &f.FrameAtt})
        c->top += shift;
    f.Disegno.height -= shift;
}

void BarraLat_Click(Program &p) {
    FormVorna &f = p.form;
    bool show = !f.BarraLat.checked;
    for (Control *c : {&f.FrameSel, &f.FrameAtt, &f.Picture1, &f.Label7})
        c->visible = show;
    if (show) {
        f.width = f.width + kSideBarWidth > f.screenWidth ? f.screenWidth : f.width + kSideBarWidth;
        f.btnAggiungiBarraLat.tooltip = "Toglie la barra laterale";
    } else {
        f.width -= kSideBarWidth;
        f.btnAggiungiBarraLat.tooltip = "Aggiunge la barra laterale";
    }
    f.BarraLat.checked = show;
    LayOutForm(p);
}

void LayOutForm(Program &p) {
    FormVorna &f = p.form;
    if (f.minimised)
        return;
    const double w = f.width, h = f.height;
    // A new size lays the window out again, so the rule stops after setting one.
    if (w <= kTooNarrow || h < kMinHeight) {
        if (w <= kTooNarrow)
            f.width = kMinWidth;
        if (h < kMinHeight)
            f.height = kMinHeight;
        LayOutForm(p);
        return;
    }
    f.FrameInput.width = w - 180;
    f.Risposta.left = w - 2808;
    f.StringaSel.width = w - 4464;
    f.StringaSel.top = h - 1476;
    f.FrameCoord.width = w - 5496;
    f.Label6.left = w - 8828;
    f.LabCoord.left = w - 6400;
    f.Disegno.width = f.FrameSel.visible ? w - 4656 : w - 124;
    // Without the icon bar the drawing keeps the height the bar left to it.
    f.Disegno.height = h - 2472 + (f.Toolbar1.visible ? 0 : kIconBarHeight);
    f.FrameSel.left = w - 4560;
    // The bar-type labels lie on the schema's bars: they move with it.
    const double schemaShift = (w - 2232) - f.Picture1.left;
    for (Control &label : f.LabelTipo)
        label.left += schemaShift;
    f.Picture1.left = w - 2232;
    f.Label7.left = w - 2232;
    f.FrameAtt.left = f.FrameSel.left;
    f.Label5.top = h - 1464;
    for (Control &c : f.Frame2)
        c.top = h - 1250;
    f.FunAttiva.top = f.SottoFunAttiva.top = h - 1170;
    f.FrameCoord.top = h - 1250;
    f.Label6.top = f.LabCoord.top = h - 1170;
    // Esito takes the free left part of the coordinate frame, up to the read-out's caption.
    f.Esito.top = h - 1170;
    f.Esito.width = std::max(0.0, f.Label6.left - 60 - f.Esito.left);
    for (Control &c : f.Angolo)
        c.top = h - 1476;
    for (Control &c : f.Label1)
        c.top = h - 1456;
    for (Control &c : f.Label2)
        c.top = h - 1350;
    f.Toolbar1.width = w;
}

} // namespace vorna
