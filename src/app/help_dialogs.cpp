// The menu "?": "Comandi di mouse e tastiera" (FormComandi), the gestures and keys of the
// drawing, and "Informazioni su vorna" (FormInformazioni), the build and the licences. Both
// only show: Chiudi or Esc closes them.
#include "app/build_info.h"
#include "app/commands.h"
#include "app/dump.h"

#include "platform/dialog.h"

namespace vorna {
namespace {

struct FormComandi {
#define VORNA_CONTROL VORNA_CONTROL_FIELD
#include "app/keys_help_controls.h"
};

struct FormInformazioni {
#define VORNA_CONTROL VORNA_CONTROL_FIELD
#include "app/about_controls.h"
};

std::span<const ControlRow<FormComandi>> FormComandiRows() {
    using Form = FormComandi;
    static constexpr ControlRow<Form> kRows[] = {
#define VORNA_CONTROL VORNA_CONTROL_ROW
#include "app/keys_help_controls.h"
    };
    return kRows;
}

std::span<const ControlRow<FormInformazioni>> FormInformazioniRows() {
    using Form = FormInformazioni;
    static constexpr ControlRow<Form> kRows[] = {
#define VORNA_CONTROL VORNA_CONTROL_ROW
#include "app/about_controls.h"
    };
    return kRows;
}

// A dialog that only shows its form.
template <typename Form> class NoticeDialog : public Dialog {
public:
    NoticeDialog(const char *name, const char *caption, std::span<const ControlRow<Form>> rows)
        : name_(name), caption_(caption), rows_(rows) {
        StartControls(rows_, form);
    }
    std::string_view Name() const override { return name_; }
    std::string_view Caption() const override { return caption_; }
    void ForEachControl(const std::function<void(std::string_view, Control &)> &fn) override {
        ForEachControlOfRows(rows_, form, fn);
    }
    void Click(std::string_view control) override { closed = closed || control == "Chiudi"; }
    // "rows": the rows of its lists.
    bool Dump(std::string_view what, std::ostream &out) override {
        if (what != "rows")
            return false;
        ForEachControl([&](std::string_view name, Control &c) { DumpListRows(name, c, out); });
        return true;
    }

    Form form;

private:
    const char *name_;
    const char *caption_;
    std::span<const ControlRow<Form>> rows_;
};

// The gestures and keys of the drawing: what it takes, tab, what it does (Windows-1252).
constexpr const char *kGestures[] = {
    "Trascinamento con il tasto destro, o Maiusc + tasto centrale\tRuota il modello: 0,5\xB0 "
    "dell'angolo y per pixel in orizzontale (verso destra +), 0,5\xB0 dell'angolo x per pixel in "
    "verticale (verso l'alto +); la vista resta ottimizzata, o mantiene il centro della sua "
    "finestra di zoom",
    "Clic destro (meno di 4 pixel di spostamento)\tIl menu Visualizza nel punto del cursore",
    "Trascinamento con il tasto centrale\tSposta la vista: il punto sotto il cursore resta sotto "
    "il cursore",
    "Doppio clic con il tasto centrale, Home, Ctrl+O\tOttimizza la vista",
    "Rotellina, Pag Su / Pag Gi\xF9\tZoom di un passo avanti / indietro attorno al centro",
    "Ctrl + rotellina\tZoom di un passo attorno al cursore: il punto sotto il cursore resta fermo",
    "Freccia sinistra / destra\tAngolo y -15\xB0 / +15\xB0",
    "Freccia su / gi\xF9\tAngolo x +15\xB0 / -15\xB0",
    "Ctrl+1, Ctrl+2, Ctrl+3, Ctrl+4\tPianta (dall'alto: x a destra, y in alto), Prospetto "
    "frontale (x a destra, z in alto), Prospetto laterale (y a destra, z in alto), Assonometria "
    "(30\xB0, 30\xB0, 0\xB0)",
    "Ctrl+F\tTrova nodo",
    "Ctrl+Z, poi due clic o un trascinamento con il tasto sinistro\tZoom sul rettangolo",
    "Ctrl+S, poi due clic\tSposta la vista del vettore tra i due punti",
    "Trascinamento con il tasto sinistro di 4 pixel o pi\xF9 dove due clic fanno un rettangolo "
    "(Finestra, un clic su uno spazio vuoto, Zoom)\tIl rettangolo, con il secondo vertice dove "
    "il tasto viene rilasciato",
    "Ctrl+R\tRidisegna con gli angoli scritti nelle caselle x, y, z (una casella che non contiene "
    "un numero viene segnalata e mantiene il suo ultimo angolo valido)",
};

std::string QtCaption(const Toolkit &t) {
    if (t.qtVersion.empty())
        return "Senza Qt: vorna-batch non ha finestre";
    return "Qt " + t.qtVersion +
           (t.qtStatic ? ", collegata staticamente" : ", dalle librerie del sistema");
}

std::string QtLicence(const Toolkit &t) {
    const std::string lgpl = "secondo la GNU Lesser General Public License versione 3 (LGPL 3)";
    if (t.qtVersion.empty())
        return "vorna-batch non contiene Qt; la finestra, vorna, usa Qt " + lgpl + ".";
    if (!t.qtStatic)
        return "vorna usa Qt " + lgpl +
               ": le librerie di Qt sono quelle installate nel sistema e si possono sostituire "
               "con altre compatibili.";
    return "vorna usa Qt " + lgpl +
           ", che consente di collegarla staticamente purch\xE9 chi usa il programma possa "
           "ricollegarlo a una Qt modificata. Per questo lo zip di vorna contiene la cartella "
           "ricollegamento\\ con i file oggetto e le librerie di vorna e il comando che li "
           "collega (ricollegamento\\LEGGIMI.txt spiega come), e la cartella licenze\\ con i "
           "testi della LGPL 3 e della GPL 3, i diritti d'autore di ogni parte di Qt e la "
           "configurazione con cui Qt \xE8 stata compilata, senza modifiche, dal pacchetto "
           "sorgente qt6-base di Debian.";
}

} // namespace

void Comandi_Click(Program &p) {
    NoticeDialog<FormComandi> dialog("FormComandi", "Comandi di mouse e tastiera",
                                     FormComandiRows());
    dialog.form.ListaComandi.items.assign(std::begin(kGestures), std::end(kGestures));
    p.ui.RunDialog(dialog);
}

void Informazioni_Click(Program &p) {
    NoticeDialog<FormInformazioni> dialog("FormInformazioni", "Informazioni su vorna",
                                          FormInformazioniRows());
    FormInformazioni &f = dialog.form;
    f.Versione.caption = "Versione " + std::string(VornaVersion());
    f.Compilazione.caption = "Compilato il " + std::string(VornaBuildDate());
    f.VersioneQt.caption = QtCaption(p.toolkit);
    f.LicenzaQt.caption = QtLicence(p.toolkit);
    f.LicenzaRuntime.visible = RuntimeLinkedIn();
    p.ui.RunDialog(dialog);
}

} // namespace vorna
