// The review of the analogous nodes in words and figures, read from the nodes' records.
#include "app/review.h"

#include "exchange/csv.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace vorna {
namespace {

constexpr const char *kDegree = "\xC2\xB0"; // UTF-8
constexpr const char *kArrow = "\xE2\x86\x92";

int NodeName(const StructureModel &m, int node) {
    return node >= 0 && node < m.nodeCount ? m.nodes[node].name : 0;
}

int BarName(const StructureModel &m, int bar) {
    return bar >= 0 && bar < m.barCount ? m.bars[bar].name : 0;
}

int PairCount(const AnalogousNode &r) {
    return std::clamp<int>(r.barCount, 0, kMaxBaseBars);
}

int BaseBarName(const StructureModel &m, const ConnectionState &s, int k) {
    return k < BaseBarsInTable(s) ? BarName(m, s.baseBars[k]) : 0;
}

ReviewedMatch Reviewed(const AnalogousNode &r) {
    return ReviewOf(r.match, PairCount(r));
}

// A figure with up to three decimals, trailing zeros dropped: "90", "0.707".
std::string ShortFixed(double value) {
    std::string text = FixedText(value, 3);
    while (text.back() == '0')
        text.pop_back();
    if (text.back() == '.')
        text.pop_back();
    return text == "-0" ? "0" : text;
}

std::string HowText(const ReviewedMatch &m) {
    switch (m.how) {
    case ReviewHow::Base:
        return "base";
    case ReviewHow::Identical:
        return "identico";
    case ReviewHow::Mirrored: {
        std::string text = m.mirroredBars.size() == 1 ? "simmetrico (asta " : "simmetrico (aste ";
        for (std::size_t i = 0; i < m.mirroredBars.size(); ++i)
            text += (i > 0 ? ", " : "") + IntText(m.mirroredBars[i] + 1);
        return text + ")";
    }
    case ReviewHow::Rotated: {
        const Vec3 &a = m.turn.axis;
        return "ruotato di " + ShortFixed(m.turn.degrees) + kDegree + " attorno a (" +
               ShortFixed(a[0]) + ", " + ShortFixed(a[1]) + ", " + ShortFixed(a[2]) + ")";
    }
    case ReviewHow::Any:
        return "qualsiasi";
    }
    return "";
}

std::string PairsText(const StructureModel &m, const ConnectionState &s, const AnalogousNode &r) {
    std::string text;
    for (int k = 0; k < PairCount(r); ++k)
        text += (k > 0 ? ", " : "") + IntText(BaseBarName(m, s, k)) + kArrow +
                IntText(BarName(m, r.bars[k]));
    return text;
}

// The kinds are declared in the order of how far they may take a joint from the base joint.
int HowRank(const ReviewedMatch &m) {
    return static_cast<int>(m.how);
}

const char *HowWord(ReviewHow how) {
    switch (how) {
    case ReviewHow::Base:
        return "base";
    case ReviewHow::Identical:
        return "identical";
    case ReviewHow::Mirrored:
        return "mirrored";
    case ReviewHow::Rotated:
        return "rotated";
    case ReviewHow::Any:
        return "any";
    }
    return "";
}

// The keys "Come" sorts by: the kind, then the turn, then how many bars are mirrored.
struct HowKey {
    int rank;
    double degrees;
    std::size_t mirrored;
    bool operator<(const HowKey &o) const {
        return std::tie(rank, degrees, mirrored) < std::tie(o.rank, o.degrees, o.mirrored);
    }
};

HowKey HowKeyOf(const AnalogousNode &r) {
    const ReviewedMatch m = Reviewed(r);
    return {HowRank(m), m.turn.degrees, m.mirroredBars.size()};
}

// The pairings compared by the names of the node's bars, base bar by base bar.
bool PairsBefore(const StructureModel &m, const AnalogousNode &a, const AnalogousNode &b) {
    const int n = std::min(PairCount(a), PairCount(b));
    for (int k = 0; k < n; ++k) {
        const int x = BarName(m, a.bars[k]), y = BarName(m, b.bars[k]);
        if (x != y)
            return x < y;
    }
    return PairCount(a) < PairCount(b);
}

} // namespace

std::vector<std::string> ReviewTitles() {
    return {"",
            "Nodo",
            "Come",
            std::string("Scarto angoli (") + kDegree + ")",
            "Scarto lunghezze (%)",
            "Aste"};
}

std::string ReviewCell(const StructureModel &m, const ConnectionState &s, const ReviewRow &row,
                       int column) {
    const AnalogousNode &r = row.record;
    switch (column) {
    case kNodeColumn:
        return IntText(NodeName(m, r.node));
    case kHowColumn:
        return HowText(Reviewed(r));
    case kAngleColumn:
        return FixedText(r.match.largestAngle, 3);
    case kLengthColumn:
        return FixedText(r.match.largestLength, 3);
    case kPairsColumn:
        return PairsText(m, s, r);
    default:
        return "";
    }
}

std::vector<int> ReviewOrder(const StructureModel &m, std::span<const ReviewRow> rows, int column,
                             bool descending) {
    std::vector<int> order(rows.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = static_cast<int>(i);
    auto sortBy = [&](auto before) {
        std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
            const AnalogousNode &x = rows[a].record, &y = rows[b].record;
            return descending ? before(y, x) : before(x, y);
        });
    };
    switch (column) {
    case kKeptColumn: {
        std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
            return descending ? rows[b].kept < rows[a].kept : rows[a].kept < rows[b].kept;
        });
        break;
    }
    case kNodeColumn:
        sortBy([&](const AnalogousNode &x, const AnalogousNode &y) {
            return NodeName(m, x.node) < NodeName(m, y.node);
        });
        break;
    case kHowColumn: {
        // Worked out once per row: a comparison would otherwise take two square roots and more.
        std::vector<HowKey> keys;
        keys.reserve(rows.size());
        for (const ReviewRow &row : rows)
            keys.push_back(HowKeyOf(row.record));
        std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
            return descending ? keys[b] < keys[a] : keys[a] < keys[b];
        });
        break;
    }
    case kAngleColumn:
        sortBy([](const AnalogousNode &x, const AnalogousNode &y) {
            return x.match.largestAngle < y.match.largestAngle;
        });
        break;
    case kLengthColumn:
        sortBy([](const AnalogousNode &x, const AnalogousNode &y) {
            return x.match.largestLength < y.match.largestLength;
        });
        break;
    case kPairsColumn:
        sortBy(
            [&](const AnalogousNode &x, const AnalogousNode &y) { return PairsBefore(m, x, y); });
        break;
    default:
        break;
    }
    return order;
}

int FurthestRow(std::span<const ReviewRow> rows) {
    int furthest = -1;
    std::pair<long long, int> farthest;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MatchSummary &match = rows[i].record.match;
        // As far as the table shows it: sums that read the same are equal.
        const double sum = match.largestAngle + match.largestLength;
        const std::pair<long long, int> far = {
            std::isfinite(sum) ? std::llround(std::clamp(sum, 0.0, 1e9) * 1000) : 0,
            HowRank(Reviewed(rows[i].record))};
        if (furthest < 0 || far > farthest) {
            furthest = static_cast<int>(i);
            farthest = far;
        }
    }
    return furthest;
}

std::string ReviewCsvText(const StructureModel &m, const ConnectionState &s,
                          std::span<const ReviewRow> rows, std::span<const int> order) {
    std::string out(kCsvStart);
    std::vector<std::string> fields = ReviewTitles();
    fields[kKeptColumn] = "Tenuto";
    AppendCsvRow(out, fields);
    for (int i : order) {
        const ReviewRow &row = rows[static_cast<std::size_t>(i)];
        for (int c = 0; c < kReviewColumns; ++c)
            fields[c] = ReviewCell(m, s, row, c);
        fields[kKeptColumn] = row.kept ? "s\xC3\xAC" : "no";
        fields[kAngleColumn] = DecimalComma(fields[kAngleColumn]);
        fields[kLengthColumn] = DecimalComma(fields[kLengthColumn]);
        AppendCsvRow(out, fields);
    }
    return out;
}

void DumpReviewRows(const StructureModel &m, const ConnectionState &s,
                    std::span<const ReviewRow> rows, std::ostream &out) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const AnalogousNode &r = rows[i].record;
        const ReviewedMatch match = Reviewed(r);
        out << "review k=" << i + 1 << " node=" << NodeName(m, r.node)
            << " how=" << HowWord(match.how);
        if (match.how == ReviewHow::Rotated) {
            const Vec3 &a = match.turn.axis;
            out << " angle=" << FixedText(match.turn.degrees, 3) << " axis=" << FixedText(a[0], 3)
                << ',' << FixedText(a[1], 3) << ',' << FixedText(a[2], 3);
        }
        if (match.how == ReviewHow::Mirrored) {
            out << " mirrored=";
            for (std::size_t j = 0; j < match.mirroredBars.size(); ++j)
                out << (j > 0 ? "," : "") << match.mirroredBars[j] + 1;
        }
        out << " dev=" << FixedText(r.match.largestAngle, 3) << '/'
            << FixedText(r.match.largestLength, 3) << " pairs=";
        for (int k = 0; k < PairCount(r); ++k)
            out << (k > 0 ? "," : "") << BaseBarName(m, s, k) << ':' << BarName(m, r.bars[k]);
        out << " kept=" << (rows[i].kept ? 1 : 0) << '\n';
    }
}

void DumpReview(const Program &p, std::ostream &out) {
    std::vector<ReviewRow> rows;
    rows.reserve(p.connection.analogousNodes.size());
    for (const AnalogousNode &r : p.connection.analogousNodes)
        rows.push_back({r, true});
    DumpReviewRows(p.model, p.connection, rows, out);
}

} // namespace vorna
