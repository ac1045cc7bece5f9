// "Perché no?": the verdict of one node in words, the status label Esito and the dumps of the
// explanation and of the near misses.
#include "app/why_not.h"

#include "app/command_steps.h"
#include "app/commands.h"
#include "platform/number_text.h"
#include "platform/text.h"

#include <cmath>

namespace vorna {
namespace {

std::string BaseBarText(int k) {
    return "asta base " + IntText(k + 1) + ", ";
}

// A deviation with three decimals, "-" for none.
std::string DeviationText(std::optional<double> value) {
    return value ? FixedText(*value, 3) : "-";
}

int NameOf(const StructureModel &m, int bar) {
    return bar >= 0 && bar < m.barCount ? m.bars[bar].name : 0;
}

} // namespace

std::string ReasonWord(WhyNotReason reason) {
    switch (reason) {
    case WhyNotReason::None:
        return "";
    case WhyNotReason::NotLive:
        return "nodo non attivo";
    case WhyNotReason::TooManyBars:
        return "troppe aste";
    case WhyNotReason::BarCount:
        return "numero di aste";
    case WhyNotReason::Direction:
        return "direzione";
    case WhyNotReason::Length:
        return "lunghezza";
    case WhyNotReason::NoRotation:
        return "rotazione";
    case WhyNotReason::Colour:
        return "colore";
    case WhyNotReason::LineType:
        return "tipo linea";
    case WhyNotReason::Section:
        return "sezione";
    }
    return "";
}

int NodeForExplanation(const StructureModel &m, const ViewState &view, int name, bool &notLive) {
    notLive = false;
    int live = -1;
    for (int n = 0; n < m.nodeCount; ++n) {
        if (m.nodes[n].name != name)
            continue;
        if (!IsLive(m.nodes[n])) {
            notLive = true;
            continue;
        }
        if (view.nodeShown[n])
            return n;
        if (live < 0)
            live = n;
    }
    if (live >= 0)
        notLive = false;
    return live;
}

std::string ReasonText(const AnalogyExplanation &e) {
    const int k = e.failingBar;
    const std::string deg = "\xB0";
    switch (e.reason) {
    case WhyNotReason::None:
        return "";
    case WhyNotReason::NotLive:
        return "nodo non attivo";
    case WhyNotReason::TooManyBars:
        return "pi\xF9 di 100 aste nel nodo";
    case WhyNotReason::BarCount:
        return IntText(e.candidateBarCount) + " aste, il nodo base ne ha " +
               IntText(static_cast<long long>(e.pairs.size()));
    case WhyNotReason::Direction:
        return BaseBarText(k) + (e.angle ? "direzione diversa di " + FixedText(*e.angle, 1) + deg
                                         : std::string("nessuna asta nella sua direzione"));
    case WhyNotReason::Length: {
        const BarPairFigures &p = e.pairs[k];
        return BaseBarText(k) + "lunghezza diversa (" + NumberText(p.candidateLength) +
               " invece di " + NumberText(p.baseLength) + ")";
    }
    case WhyNotReason::NoRotation:
        return BaseBarText(k) + "nessuna rotazione, scarto di " +
               FixedText(e.angle.value_or(0), 1) + deg;
    case WhyNotReason::Colour:
        return BaseBarText(k) + "colore diverso";
    case WhyNotReason::LineType:
        return BaseBarText(k) + "tipo linea diverso";
    case WhyNotReason::Section:
        return BaseBarText(k) + "sezione diversa";
    }
    return "";
}

std::string VerdictText(int name, const AnalogyExplanation &e) {
    const std::string node = "Nodo " + IntText(name);
    return e.analogous ? node + " analogo" : node + " non analogo: " + ReasonText(e);
}

void ShowVerdictOfName(Program &p, int name) {
    bool notLive = false;
    const int node = NodeForExplanation(p.model, p.view, name, notLive);
    if (node < 0 || !p.view.nodeShown[node]) {
        p.form.Esito.caption = p.form.Esito.tooltip = "";
        return;
    }
    const AnalogyExplanation e =
        ExplainNodeAnalogy(p.model, p.view, p.connection, AnalogyParametersOf(p), node);
    p.form.Esito.caption = VerdictText(name, e);
    // The status row may leave room for only part of it.
    p.form.Esito.tooltip = p.form.Esito.caption;
}

void DumpWhyNot(Program &p, std::string_view nameText, std::ostream &out) {
    const std::string shown = Cp1252ToUtf8(nameText);
    const std::optional<double> name = StrictNumber(nameText);
    bool notLive = false;
    const int node = name && std::floor(*name) == *name && std::fabs(*name) < 1e9
                         ? NodeForExplanation(p.model, p.view, static_cast<int>(*name), notLive)
                         : -1;
    // With no node, the base bars alone against no bar.
    AnalogyExplanation e =
        ExplainNodeAnalogy(p.model, p.view, p.connection, AnalogyParametersOf(p), node);
    if (node < 0) {
        e.reason = notLive ? WhyNotReason::NotLive : WhyNotReason::None;
        e.failingBar = -1;
        e.angle.reset();
    }
    out << "whynot node=" << shown;
    if (e.analogous) {
        out << " verdict=analogous";
    } else {
        out << " verdict=rejected reason="
            << (e.reason == WhyNotReason::None ? "not-found" : ReasonCode(e.reason));
        if (e.failingBar >= 0)
            out << " bar=" << e.failingBar + 1;
        if (e.angle)
            out << " angle=" << FixedText(e.angle.value_or(0), 3);
    }
    if (e.tolerances)
        out << " tolerances=" << NumberText(e.tolerances->first) << '/'
            << NumberText(e.tolerances->second);
    out << '\n';
    for (std::size_t k = 0; k < e.pairs.size(); ++k) {
        const BarPairFigures &pair = e.pairs[k];
        out << "pair k=" << k + 1 << " base=" << NameOf(p.model, pair.baseBar)
            << " candidate=" << NameOf(p.model, pair.candidateBar)
            << " angle=" << (pair.angle ? FixedText(*pair.angle, 3) : "-")
            << " lengths=" << NumberText(pair.baseLength) << '/'
            << NumberText(pair.candidateLength);
        if (e.tolerances)
            out << " dev=" << DeviationText(pair.angle) << '/'
                << DeviationText(pair.lengthDeviation);
        out << '\n';
    }
}

void DumpNearMisses(Program &p, std::ostream &out) {
    const std::vector<NearMiss> misses =
        FindNearMisses(p.model, p.view, p.connection, AnalogyParametersOf(p));
    for (std::size_t r = 0; r < misses.size(); ++r) {
        const NearMiss &m = misses[r];
        out << "nearmiss rank=" << r + 1 << " node=" << p.model.nodes[m.node].name
            << " reason=" << ReasonCode(m.reason) << " bar=" << m.failingBar + 1
            << " score=" << FixedText(m.score, 3) << '\n';
    }
}

} // namespace vorna
