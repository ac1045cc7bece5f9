// The command table: menu items and icon-bar keys to commands.
#include "app/commands.h"

#include "app/joint_types_dialog.h"

namespace vorna {

const std::vector<Command> &CommandTable() {
    using F = FormVorna;
    static const std::vector<Command> table = {
        {"Salva", &F::Salva, "ImportaTutto", "Ctrl+G", Salva_Click},
        {"SalvaGeom", &F::SalvaGeom, "ImportaGeom", nullptr, SalvaGeom_Click},
        {"SalvaSoll", &F::SalvaSoll, "ImportaSoll", nullptr, SalvaSoll_Click},
        {"ScriColl", &F::ScriColl, nullptr, nullptr, ScriColl_Click},
        {"SalvaDisegno", &F::SalvaDisegno, nullptr, "F2", SalvaDisegno_Click},
        {"Esci", &F::Esci, "Esci", "Ctrl+E", Esci_Click},
        {"Ottimizza", &F::Ottimizza, "Ottimizza", "Ctrl+O", Ottimizza_Click},
        {"ZoomIn", &F::ZoomIn, "Zoom", "Ctrl+Z", ZoomIn_Click},
        {"Sposta", &F::Sposta, "Sposta", "Ctrl+S", Sposta_Click},
        {"Ridis", &F::Ridis, "Ridisegna", "Ctrl+R", Ridis_Click},
        {"NodoBase", &F::NodoBase, nullptr, "Ctrl+N", NodoBase_Click},
        {"RimNodoBase", &F::RimNodoBase, nullptr, nullptr, RimNodoBase_Click},
        {"AsteNodoBase", &F::AsteNodoBase, nullptr, "Ctrl+B", AsteNodoBase_Click},
        {"Aggiungi", &F::Aggiungi, "Aggiungi", "Ctrl+A", Aggiungi_Click},
        {"Rimuovi", &F::Rimuovi, "Rimuovi", "Ctrl+T", Rimuovi_Click},
        {"RimTutto", &F::RimTutto, "RimuoviTutto", nullptr, RimTutto_Click},
        {"Inverti", &F::Inverti, "InvertiSel", nullptr, Inverti_Click},
        {"EvidTipo", &F::EvidTipo, nullptr, nullptr, EvidTipo_Click},
        {"TipiNodo", &F::TipiNodo, nullptr, nullptr, TipiNodo_Click},
        {"Interrompi", &F::Interrompi, "Interrompi", nullptr, Interrompi_Click},
        {"Finestra", &F::Finestra, nullptr, nullptr, Finestra_Click},
        {"Bianco", &F::Bianco, nullptr, nullptr, [](Program &p) { ColourCommand(p, 1); },
         &F::Colore},
        {"Blu", &F::Blu, nullptr, nullptr, [](Program &p) { ColourCommand(p, 2); }, &F::Colore},
        {"Rosso", &F::Rosso, nullptr, nullptr, [](Program &p) { ColourCommand(p, 3); }, &F::Colore},
        {"Verde", &F::Verde, nullptr, nullptr, [](Program &p) { ColourCommand(p, 4); }, &F::Colore},
        {"Giallo", &F::Giallo, nullptr, nullptr, [](Program &p) { ColourCommand(p, 5); },
         &F::Colore},
        {"VerdeScuro", &F::VerdeScuro, nullptr, nullptr, [](Program &p) { ColourCommand(p, 6); },
         &F::Colore},
        {"Magenta", &F::Magenta, nullptr, nullptr, [](Program &p) { ColourCommand(p, 7); },
         &F::Colore},
        {"Azzurro", &F::Azzurro, nullptr, nullptr, [](Program &p) { ColourCommand(p, 8); },
         &F::Colore},
        {"Ara", &F::Ara, nullptr, nullptr, [](Program &p) { ColourCommand(p, 9); }, &F::Colore},
        {"TuttiCol", &F::TuttiCol, nullptr, nullptr,
         [](Program &p) { ColourCommand(p, kAllCodes); }, &F::Colore},
        {"TipoPt1", &F::TipoPt1, nullptr, nullptr, [](Program &p) { PointTypeCommand(p, 0); },
         &F::TipoPunto},
        {"TipoPt2", &F::TipoPt2, nullptr, nullptr, [](Program &p) { PointTypeCommand(p, 1); },
         &F::TipoPunto},
        {"TipoPt3", &F::TipoPt3, nullptr, nullptr, [](Program &p) { PointTypeCommand(p, 2); },
         &F::TipoPunto},
        {"TipoPt4", &F::TipoPt4, nullptr, nullptr, [](Program &p) { PointTypeCommand(p, 3); },
         &F::TipoPunto},
        {"TuttiPt", &F::TuttiPt, nullptr, nullptr,
         [](Program &p) { PointTypeCommand(p, kAllCodes); }, &F::TipoPunto},
        {"SchVincolo", &F::SchVincolo, nullptr, nullptr, SchVincolo_Click},
        {"Nome", &F::Nome, nullptr, nullptr, Nome_Click},
        {"Tutto", &F::Tutto, nullptr, nullptr, Tutto_Click},
        {"VisCoord", &F::VisCoord, nullptr, nullptr, VisCoord_Click},
        {"VisAssi", &F::VisAssi, nullptr, nullptr, VisAssi_Click},
        {"BarraLat", &F::BarraLat, "AggiungiBarraLat", nullptr, BarraLat_Click},
        {"BarraIcone", &F::BarraIcone, nullptr, nullptr, BarraIcone_Click},
        {"Trappola", &F::Trappola, nullptr, nullptr, Trappola_Click},
        {"Rappresentazione", &F::Rappresentazione, nullptr, nullptr, Rappresentazione_Click},
    };
    return table;
}

namespace {

// Nothing runs once the program is ending.
bool Run(Program &p, const Command &c) {
    if (p.exitRequested)
        return false;
    c.run(p);
    return true;
}

} // namespace

bool IsMenuItem(std::string_view name) {
    for (const Command &c : CommandTable())
        if (name == c.menuItem)
            return true;
    return false;
}

bool RunMenuItem(Program &p, std::string_view menuItem) {
    for (const Command &c : CommandTable())
        if (menuItem == c.menuItem)
            return (p.form.*c.item).enabled &&
                   (c.submenu == nullptr || (p.form.*c.submenu).enabled) && Run(p, c);
    return false;
}

bool RunToolbarButton(Program &p, std::string_view key) {
    for (const ToolbarButton &b : ToolbarButtons()) {
        if (key != b.key)
            continue;
        if (!(p.form.*b.button).enabled)
            return false;
        for (const Command &c : CommandTable())
            if (c.buttonKey != nullptr && key == c.buttonKey)
                return Run(p, c);
    }
    return false;
}

} // namespace vorna
