// The analogy's tolerances: the values the boxes take, and the job's file that keeps them.
#include "options/tolerances.h"

#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <cmath>

namespace vorna {

std::optional<double> ToleranceValue(std::string_view text, double most) {
    const std::string trimmed = Trim(text);
    if (trimmed.empty())
        return 0.0;
    const std::optional<double> value = StrictNumber(trimmed);
    if (!value || !(*value >= 0 && *value <= most))
        return std::nullopt;
    return *value;
}

std::string ToleranceFileText(std::string_view angleText, std::string_view lengthText) {
    std::string out;
    AppendLine(out, "TolAngoli=" + Trim(angleText));
    AppendLine(out, "TolLunghezze=" + Trim(lengthText));
    return out;
}

ToleranceFileRead ReadToleranceFile(const std::filesystem::path &path, std::string &angleText,
                                    std::string &lengthText) {
    if (!FileExists(path))
        return ToleranceFileRead::Missing;
    return OrWhenOutOfMemory(ToleranceFileRead::Bad, [&] {
        std::optional<TextCursor> cursor = TextCursor::Open(path);
        if (!cursor)
            return ToleranceFileRead::Bad;
        std::optional<std::string> angle, length;
        std::string_view line;
        while (ReadLine(*cursor, line)) {
            const std::string text = Trim(line);
            if (text.empty())
                continue;
            const std::size_t equals = text.find('=');
            const std::string key = Trim(std::string_view(text).substr(0, equals));
            const std::string value =
                equals == std::string::npos ? "" : Trim(std::string_view(text).substr(equals + 1));
            const bool isAngle = key == "TolAngoli", isLength = key == "TolLunghezze";
            std::optional<std::string> &slot = isAngle ? angle : length;
            if (equals == std::string::npos || (!isAngle && !isLength) || slot ||
                !ToleranceValue(value, isAngle ? kMostAngleTolerance : kMostLengthTolerance))
                return ToleranceFileRead::Bad;
            slot = value;
        }
        angleText = angle.value_or("");
        lengthText = length.value_or("");
        return ToleranceFileRead::Read;
    });
}

} // namespace vorna
