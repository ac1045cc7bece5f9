// Tables as CSV files for a spreadsheet in an Italian locale.
#include "exchange/csv.h"

#include "platform/native_path.h"
#include "platform/text_file.h"

#include <algorithm>

namespace vorna {

std::string DecimalComma(std::string text) {
    std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

void AppendCsvRow(std::string &out, const std::vector<std::string> &fields) {
    std::string row;
    for (std::size_t k = 0; k < fields.size(); ++k) {
        if (k > 0)
            row += ';';
        const std::string &field = fields[k];
        if (field.find_first_of(";\"\r\n") == std::string::npos) {
            row += field;
            continue;
        }
        row += '"';
        for (char c : field)
            row += c == '"' ? std::string("\"\"") : std::string(1, c);
        row += '"';
    }
    AppendLine(out, row);
}

UserMessage WriteCsv(std::string_view fileName, std::string_view text) {
    const std::string name(fileName);
    if (!WriteFileAtomic(NativePath(fileName), text))
        return {"Errore durante la scrittura sul file" + name, "ERRORE", MsgIcon::Critical};
    return {"File " + name + " salvato.", "SALVA FILE CSV", MsgIcon::Information};
}

} // namespace vorna
