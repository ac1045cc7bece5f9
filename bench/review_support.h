// The full-capacity suite started as the window starts it, with every node that has a bar in
// the list: the base node is one with the fewest bars, offered against every node under "Nodi
// qualsiasi" with lengths left out. What the review of the list benchmarks open and sort.
#pragma once

#include "app/command_steps.h"
#include "app/program.h"
#include "app/startup.h"
#include "connection/base_node.h"
#include "large_model.h"
#include "test_support.h"

#include <memory>
#include <vector>

namespace vorna::bench {

struct FullList {
    test::RecordingUi ui;
    std::unique_ptr<Program> program;
    bool ready = false;

    FullList(Canvas &disegno, Canvas &picture) {
        program = std::make_unique<Program>(ui, disegno, picture);
        Program &p = *program;
        RunStartUp(p, "|diroot=" + LargeSuiteFolder().string() + "|");
        if (!p.structureLoaded || !ui.messages.empty())
            return;
        // The bars at each point, to find a node with the fewest without gathering them all.
        std::vector<int> barsAt(static_cast<std::size_t>(p.model.pointCount));
        for (int b = 0; b < p.model.barCount; ++b)
            for (int end : {p.model.bars[b].pointI, p.model.bars[b].pointJ})
                if (end >= 0 && end < p.model.pointCount)
                    ++barsAt[end];
        int fewest = kMaxBaseBars + 1;
        for (int n = 0; n < p.model.nodeCount; ++n) {
            const int count = barsAt[p.model.nodes[n].pointIndex];
            if (count >= 1 && count < fewest) {
                fewest = count;
                p.connection.baseNode = static_cast<std::int16_t>(n);
            }
        }
        GatherBaseBars(p.model, p.view, p.connection);
        ResetAnalogousToBaseNode(p.connection);
        for (std::size_t k = 0; k < p.form.OpzMetodo.size(); ++k)
            p.form.OpzMetodo[k].checked = k == 3;
        p.form.analLun.checked = false;
        const AnalogyParameters params = AnalogyParametersOf(p);
        for (int n = 0; n < p.model.nodeCount; ++n)
            TestAnalogy(p.model, p.view, p.connection, params, n);
        RefreshListText(p);
        ready = p.connection.analogousNodes.size() > 1;
    }
};

} // namespace vorna::bench
