// The catalogue of joint types as a CSV file for a spreadsheet in an Italian locale.
#include "exchange/joint_types_csv.h"

#include "exchange/csv.h"
#include "platform/number_text.h"
#include "platform/text_file.h"

#include <algorithm>

namespace vorna {
namespace {

// A coordinate as the shortest text that reads back, with a decimal comma.
std::string Decimal(double value) {
    return DecimalComma(NumberText(value));
}

} // namespace

std::string JointTypesCsvText(const StructureModel &model, const JointTypeCatalogue &catalogue,
                              const BarsOfNode &barsOf) {
    std::string out(kCsvStart);
    const bool deviations = catalogue.withinTolerances;
    AppendLine(out, std::string("Tipo;Nodi del tipo;Capo;Nodo;X;Y;Z;Aste") +
                        (deviations ? ";Scarto angoli (\xC2\xB0);Scarto lunghezze (%)" : ""));
    std::vector<std::int16_t> bars;
    for (std::size_t k = 0; k < catalogue.types.size(); ++k) {
        const JointType &type = catalogue.types[k];
        std::vector<int> nodes = type.nodes;
        std::stable_sort(nodes.begin(), nodes.end(),
                         [&](int a, int b) { return model.nodes[a].name < model.nodes[b].name; });
        const std::string common = IntText(static_cast<long long>(k) + 1) + ';' +
                                   IntText(static_cast<long long>(nodes.size())) + ';' +
                                   IntText(model.nodes[type.nodes.front()].name) + ';';
        for (int node : nodes) {
            const Point &p = PointAt(model, model.nodes[node].pointIndex);
            std::string row = common + IntText(model.nodes[node].name) + ';' + Decimal(p.x) + ';' +
                              Decimal(p.y) + ';' + Decimal(p.z) + ';';
            bars.clear();
            barsOf(node, bars);
            bool first = true;
            for (std::int16_t b : bars) {
                if (b < 0 || b >= model.barCount || model.bars[b].name < 1)
                    continue;
                row += (first ? "" : " ") + IntText(model.bars[b].name);
                first = false;
            }
            if (deviations)
                row += ';' + DecimalComma(FixedText(type.largestAngle, 3)) + ';' +
                       DecimalComma(FixedText(type.largestLength, 3));
            AppendLine(out, row);
        }
    }
    return out;
}

} // namespace vorna
