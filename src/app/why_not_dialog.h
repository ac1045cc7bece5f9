// "Perché no?": the dialog FormPercheNo that sets one node against the base node, bar by bar,
// with the model's near misses on a second tab, and the function that opens it.
#pragma once

#include "app/program.h"
#include "connection/why_not.h"
#include "platform/dialog.h"

namespace vorna {

struct FormPercheNo {
#define VORNA_CONTROL VORNA_CONTROL_FIELD
#include "app/why_not_controls.h"
};

class WhyNotDialog : public Dialog {
public:
    WhyNotDialog(Program &program, int node, const AnalogyExplanation &explanation,
                 std::vector<NearMiss> misses);

    std::string_view Name() const override { return "FormPercheNo"; }
    std::string_view Caption() const override { return "Confronto con il nodo base"; }
    void ForEachControl(const std::function<void(std::string_view, Control &)> &fn) override;
    // A row of the near misses centres the view on its node; Chiudi closes.
    void Click(std::string_view control) override;
    // "rows": every row of the two lists, Confronto(K)= and ListaQuasi(R)=, cells split by "|".
    bool Dump(std::string_view what, std::ostream &out) override;

private:
    Program &p_;
    std::vector<NearMiss> misses_;
    FormPercheNo form_;
};

// The command "Perché no?": a function like "Aggiungi nodi" whose picked or named node opens
// the dialog.
void PercheNo_Click(Program &program);
// The node of that name set against the base node in the dialog.
void ExplainNodeInDialog(Program &program, int name);

} // namespace vorna
