// The review of the analogous nodes in words and figures: the cells of FormRevisione's table,
// its CSV file and `dump review`, every one read from the nodes' records.
#pragma once

#include "app/program.h"
#include "connection/review.h"

#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace vorna {

// A record as the review shows it, ticked (kept in the list) or not.
struct ReviewRow {
    AnalogousNode record;
    bool kept = true;
};

// The columns: the check box, "Nodo", "Come", "Scarto angoli (°)", "Scarto lunghezze (%)",
// "Aste".
enum ReviewColumn : int {
    kKeptColumn,
    kNodeColumn,
    kHowColumn,
    kAngleColumn,
    kLengthColumn,
    kPairsColumn,
    kReviewColumns
};

// The column titles (UTF-8); the check box's is empty.
std::vector<std::string> ReviewTitles();
// A cell's text (UTF-8); empty in the check box's column. "Come" is "base", "identico",
// "simmetrico (aste 2, 4)" (the base bars taken mirrored), "ruotato di 90° attorno a (0, 0, 1)"
// or "qualsiasi"; the deviations have three decimals; "Aste" is "6→7, 18→19": each base bar's
// name, then the name of its bar at the node.
std::string ReviewCell(const StructureModel &model, const ConnectionState &state,
                       const ReviewRow &row, int column);

// The rows in the order of a column, equal ones in their own order (also when descending); any
// other column gives their own order.
std::vector<int> ReviewOrder(const StructureModel &model, std::span<const ReviewRow> rows,
                             int column, bool descending);
// The row furthest from the base joint: the largest sum of its two deviations (degrees plus
// percent, as the near misses are scored); between equal sums "qualsiasi", then "ruotato",
// "simmetrico", "identico", "base"; then the first. -1 when there are no rows.
int FurthestRow(std::span<const ReviewRow> rows);

// The table as a CSV file, the rows in the order given: "Tenuto" ("sì" or "no") and the other
// columns by their titles, the deviations with a decimal comma.
std::string ReviewCsvText(const StructureModel &model, const ConnectionState &state,
                          std::span<const ReviewRow> rows, std::span<const int> order);

// One `dump review` line per row, numbered from 1.
void DumpReviewRows(const StructureModel &model, const ConnectionState &state,
                    std::span<const ReviewRow> rows, std::ostream &out);
// `dump review` in the window: every record of the list, each kept.
void DumpReview(const Program &program, std::ostream &out);

} // namespace vorna
