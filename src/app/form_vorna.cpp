// FormVorna, the main window as data: every control, menu item and icon-bar button with the
// properties that commands read and write. The Qt window mirrors it.
#include "app/form_vorna.h"

namespace vorna {
namespace {

Control Caption(std::string caption) {
    Control c;
    c.caption = std::move(caption);
    return c;
}

Control Box(std::string text) {
    Control c;
    c.text = std::move(text);
    return c;
}

Control Checked(std::string caption) {
    Control c = Caption(std::move(caption));
    c.checked = true;
    return c;
}

Control Button(std::string tooltip) {
    Control c;
    c.tooltip = std::move(tooltip);
    return c;
}

// Design-time positions in client twips; the layout rule then fits them to the window size.
void PlaceControls(FormVorna &f) {
    Place(f.Toolbar1, 0, 0, f.width, 400);
    Place(f.FrameInput, 60, 400, 0, 560);
    Place(f.Domanda, 180, 600, 7000, 300);
    Place(f.Risposta, 0, 560, 2600, 315);
    Place(f.Disegno, 60, 990, 0, 0);
    Place(f.FrameSel, 0, 990, 4440, 2640);
    Place(f.FrameAtt, 0, 3690, 4440, 3700);
    Place(f.Label7, 0, 7450, 2100, 250);
    Place(f.Picture1, 0, 7720, 2100, 1500);
    for (int i = 0; i < 3; ++i) {
        Place(f.Label1[i], 120 + 840.0 * i, 0, 200, 280);
        Place(f.Label2[i], 300 + 840.0 * i, 0, 120, 200);
        Place(f.Angolo[i], 420 + 840.0 * i, 0, 480, 260);
    }
    Place(f.Label5, 2640, 0, 2300, 280);
    Place(f.StringaSel, 5000, 0, 0, 280);
    Place(f.Frame2[0], 60, 0, 2600, 420);
    Place(f.Frame2[1], 2700, 0, 2600, 420);
    Place(f.FunAttiva, 120, 0, 2480, 280);
    Place(f.SottoFunAttiva, 2760, 0, 2480, 280);
    Place(f.FrameCoord, 5400, 0, 0, 420);
    Place(f.Label6, 0, 0, 1000, 280);
    Place(f.LabCoord, 0, 0, 5000, 280);
}

} // namespace

void Place(Control &c, double left, double top, double width, double height) {
    c.left = left;
    c.top = top;
    c.width = width;
    c.height = height;
}

FormVorna InitialForm() {
    FormVorna f;
    f.LineSposta.visible = false;
    f.Shape.visible = false;
    f.FunAttiva = Caption("###");
    f.SottoFunAttiva = Caption("###");
    f.Domanda = Caption("###");
    f.Risposta.enabled = false;
    f.Risposta.backColour = kButtonFaceColour;
    f.Label5 = Caption("Risultato della selezione:");
    f.Label6 = Caption("Coordinate:");
    f.LabCoord = Caption("0, 0");
    f.Angolo = {Box("30"), Box("30"), Box("0")};
    f.Label1 = {Caption("a"), Caption("a"), Caption("a")};
    f.Label2 = {Caption("x"), Caption("y"), Caption("z")};
    f.FrameSel = Caption("Parametri di analogia");
    f.OpzMetodo = {Checked("Nodi identici"), Caption("Nodi identici e simmetrici"),
                   Caption("Nodi identici e ruotati"), Caption("Nodi qualsiasi")};
    f.analLun = Checked("Lungh. delle aste");
    f.AnalSezAste = Caption("Sezioni delle aste");
    f.AnalColAste = Caption("Colore delle aste");
    f.analLinAste = Caption("Tipo linea delle aste");
    f.FrameAtt = Caption("Elementi attivati");
    f.NodiAtt = Checked("Nodi");
    f.AsteAtt = Checked("Aste");
    f.GusciAtt = Checked("Gusci");
    f.ElSelez = Checked("Nodi analoghi");
    f.ElNonSelez = Checked("Nodi non analoghi");
    f.Label3 = {Caption("Intervalli di coordinate"), Caption("X"), Caption("Y"), Caption("Z")};
    f.Label4 = {Caption("-"), Caption("-"), Caption("-")};
    f.TuttoX = Caption("Tutto");
    f.TuttoY = Caption("Tutto");
    f.TuttoZ = Caption("Tutto");
    f.Label7 = Caption("Schema del nodo base");
    for (auto &label : f.LabelTipo)
        label.visible = false;

    f.File = Caption("&File");
    f.Salva = Caption("&Importa geometria e sollecitazioni");
    f.SalvaGeom = Caption("Importa &geometria");
    f.SalvaSoll = Caption("Importa &sollecitazioni");
    f.ScriColl = Caption("Esporta &collegamento");
    f.SalvaDisegno = Caption("Salva &disegno...");
    f.Esci = Caption("&Esci");
    f.Visualizza = Caption("&Visualizza");
    f.Ottimizza = Caption("&Ottimizza");
    f.ZoomIn = Caption("&Zoom");
    f.Sposta = Caption("&Sposta");
    f.Ridis = Caption("&Ridisegna");
    f.Operazioni = Caption("&Operazioni");
    f.NodoBase = Caption("&Scegli nodo base");
    f.RimNodoBase = Caption("Ri&muovi nodo base");
    f.AsteNodoBase = Caption("Rimuovi aste &base");
    f.Aggiungi = Caption("&Aggiungi nodi");
    f.Rimuovi = Caption("&Rimuovi nodi");
    f.RimTutto = Caption("Ri&muovi tutti i nodi");
    f.Inverti = Caption("In&verti selezione nodi");
    f.EvidTipo = Caption("&Evidenzia tipo aste");
    f.TipiNodo = Caption("Tipi di no&do...");
    f.Interrompi = Caption("&Interrompi");
    f.Selezioni = Caption("&Selezioni");
    f.Finestra = Caption("&Finestra");
    f.Colore = Caption("&Colore");
    f.Bianco = Caption("Bianco");
    f.Blu = Caption("Blu");
    f.Rosso = Caption("Rosso");
    f.Verde = Caption("Verde");
    f.Giallo = Caption("Giallo");
    f.VerdeScuro = Caption("Verde scuro");
    f.Magenta = Caption("Magenta");
    f.Azzurro = Caption("Azzurro");
    f.Ara = Caption("Arancione");
    f.TuttiCol = Caption("Tutti");
    f.TipoPunto = Caption("Tipo &punto");
    f.TipoPt1 = Caption("1");
    f.TipoPt2 = Caption("2");
    f.TipoPt3 = Caption("3");
    f.TipoPt4 = Caption("4");
    f.TuttiPt = Caption("Tutti");
    f.SchVincolo = Caption("Vincolo");
    f.Nome = Caption("N&ome elemento");
    f.Tutto = Caption("T&utto");
    f.Opzioni = Caption("Op&zioni");
    f.VisCoord = Checked("&Visualizza Coordinate");
    f.VisAssi = Checked("Visualizza &Assi");
    f.BarraLat = Checked("&Barra laterale");
    f.BarraIcone = Checked("Barra delle &icone");
    f.Trappola = Caption("&Trappola...");
    f.Rappresentazione = Caption("O&pzioni...");

    f.btnImportaTutto = Button("Importa geometria e sollecitazioni");
    f.btnImportaGeom = Button("Importa geometria");
    f.btnImportaSoll = Button("Importa sollecitazioni");
    f.btnEsci = Button("Esci");
    f.btnOttimizza = Button("Ottimizza");
    f.btnZoom = Button("Zoom");
    f.btnSposta = Button("Sposta");
    f.btnRidisegna = Button("Ridisegna");
    f.btnAggiungi = Button("Aggiungi nodi");
    f.btnRimuovi = Button("Rimuovi nodi");
    f.btnRimuoviTutto = Button("Rimuovi tutti i nodi");
    f.btnInvertiSel = Button("Inverti selezione nodi");
    f.btnInterrompi = Button("Interrompi");
    f.btnAggiungiBarraLat = Button("Attiva o disattiva la barra laterale");
    PlaceControls(f);
    return f;
}

const std::array<ToolbarButton, 14> &ToolbarButtons() {
    static const std::array<ToolbarButton, 14> buttons = {{
        {"ImportaTutto", &FormVorna::btnImportaTutto},
        {"ImportaGeom", &FormVorna::btnImportaGeom},
        {"ImportaSoll", &FormVorna::btnImportaSoll},
        {"Esci", &FormVorna::btnEsci},
        {"Ottimizza", &FormVorna::btnOttimizza},
        {"Zoom", &FormVorna::btnZoom},
        {"Sposta", &FormVorna::btnSposta},
        {"Ridisegna", &FormVorna::btnRidisegna},
        {"Aggiungi", &FormVorna::btnAggiungi},
        {"Rimuovi", &FormVorna::btnRimuovi},
        {"RimuoviTutto", &FormVorna::btnRimuoviTutto},
        {"InvertiSel", &FormVorna::btnInvertiSel},
        {"Interrompi", &FormVorna::btnInterrompi},
        {"AggiungiBarraLat", &FormVorna::btnAggiungiBarraLat},
    }};
    return buttons;
}

namespace {} // namespace

void ForEachControl(FormVorna &f, const std::function<void(std::string_view, Control &)> &fn) {
#define VORNA_ONE(name) fn(#name, f.name)
    VORNA_ONE(Toolbar1);
    for (const auto &b : ToolbarButtons())
        fn(std::string("Toolbar1.") + b.key, f.*b.button);
    VORNA_ONE(FrameInput);
    VORNA_ONE(Domanda);
    VORNA_ONE(Risposta);
    VORNA_ONE(Disegno);
    VORNA_ONE(LineSposta);
    VORNA_ONE(Shape);
    VORNA_ONE(FrameSel);
    ForEachOfArray("OpzMetodo", f.OpzMetodo, 0, fn);
    VORNA_ONE(analLun);
    VORNA_ONE(AnalSezAste);
    VORNA_ONE(AnalColAste);
    VORNA_ONE(analLinAste);
    VORNA_ONE(FrameAtt);
    VORNA_ONE(NodiAtt);
    VORNA_ONE(AsteAtt);
    VORNA_ONE(GusciAtt);
    VORNA_ONE(ElSelez);
    VORNA_ONE(ElNonSelez);
    ForEachOfArray("Label3", f.Label3, 0, fn);
    ForEachOfArray("IntX", f.IntX, 0, fn);
    ForEachOfArray("IntY", f.IntY, 0, fn);
    ForEachOfArray("IntZ", f.IntZ, 0, fn);
    ForEachOfArray("Label4", f.Label4, 0, fn);
    VORNA_ONE(TuttoX);
    VORNA_ONE(TuttoY);
    VORNA_ONE(TuttoZ);
    VORNA_ONE(Label7);
    VORNA_ONE(Picture1);
    ForEachOfArray("LabelTipo", f.LabelTipo, 1, fn);
    ForEachOfArray("Label1", f.Label1, 0, fn);
    ForEachOfArray("Label2", f.Label2, 0, fn);
    ForEachOfArray("Angolo", f.Angolo, 0, fn);
    VORNA_ONE(Label5);
    VORNA_ONE(StringaSel);
    VORNA_ONE(Line2);
    ForEachOfArray("Frame2", f.Frame2, 0, fn);
    VORNA_ONE(FunAttiva);
    VORNA_ONE(SottoFunAttiva);
    VORNA_ONE(FrameCoord);
    VORNA_ONE(Label6);
    VORNA_ONE(LabCoord);
    VORNA_ONE(File);
    VORNA_ONE(Salva);
    VORNA_ONE(SalvaGeom);
    VORNA_ONE(SalvaSoll);
    VORNA_ONE(ScriColl);
    VORNA_ONE(SalvaDisegno);
    VORNA_ONE(Esci);
    VORNA_ONE(Visualizza);
    VORNA_ONE(Ottimizza);
    VORNA_ONE(ZoomIn);
    VORNA_ONE(Sposta);
    VORNA_ONE(Ridis);
    VORNA_ONE(Operazioni);
    VORNA_ONE(NodoBase);
    VORNA_ONE(RimNodoBase);
    VORNA_ONE(AsteNodoBase);
    VORNA_ONE(Aggiungi);
    VORNA_ONE(Rimuovi);
    VORNA_ONE(RimTutto);
    VORNA_ONE(Inverti);
    VORNA_ONE(EvidTipo);
    VORNA_ONE(TipiNodo);
    VORNA_ONE(Interrompi);
    VORNA_ONE(Selezioni);
    VORNA_ONE(Finestra);
    VORNA_ONE(Colore);
    VORNA_ONE(Bianco);
    VORNA_ONE(Blu);
    VORNA_ONE(Rosso);
    VORNA_ONE(Verde);
    VORNA_ONE(Giallo);
    VORNA_ONE(VerdeScuro);
    VORNA_ONE(Magenta);
    VORNA_ONE(Azzurro);
    VORNA_ONE(Ara);
    VORNA_ONE(TuttiCol);
    VORNA_ONE(TipoPunto);
    VORNA_ONE(TipoPt1);
    VORNA_ONE(TipoPt2);
    VORNA_ONE(TipoPt3);
    VORNA_ONE(TipoPt4);
    VORNA_ONE(TuttiPt);
    VORNA_ONE(SchVincolo);
    VORNA_ONE(Nome);
    VORNA_ONE(Tutto);
    VORNA_ONE(Opzioni);
    VORNA_ONE(VisCoord);
    VORNA_ONE(VisAssi);
    VORNA_ONE(BarraLat);
    VORNA_ONE(BarraIcone);
    VORNA_ONE(Trappola);
    VORNA_ONE(Rappresentazione);
#undef VORNA_ONE
}

Control *FindControl(FormVorna &form, std::string_view name) {
    Control *found = nullptr;
    ForEachControl(form, [&](std::string_view n, Control &c) {
        if (!found && n == name)
            found = &c;
    });
    return found;
}

} // namespace vorna
