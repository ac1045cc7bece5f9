// Readers of the job's section catalogue "sezioni_" and thickness catalogue "spessori".
#include "model/catalogues.h"

#include "model/messages.h"
#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/text_file.h"

namespace vorna {
namespace {

// The card count of the first field; a missing or unreadable count is 0.
int ReadCardCount(TextCursor &cursor) {
    std::string_view field;
    if (!ReadNumberField(cursor, field))
        return 0;
    auto n = ToInt32(LeadingNumber(field));
    return n && *n > 0 ? *n : 0;
}

// Reads count numeric fields (a blank ends a number as a comma does); false when the file ends
// first, so the rest of the file counts as absent.
bool SkipFields(TextCursor &cursor, int count) {
    std::string_view field;
    for (int i = 0; i < count; ++i)
        if (!ReadNumberField(cursor, field))
            return false;
    return true;
}

CatalogueResult ThicknessCards(TextCursor &cursor, StructureModel &model);
CatalogueResult SectionCards(TextCursor &cursor, StructureModel &model);

// Reads the catalogue file with parse; the message of a file that cannot be read otherwise.
CatalogueResult ReadCatalogue(std::string_view jobFolder, std::string_view jobPath,
                              const char *file, StructureModel &model,
                              CatalogueResult (*parse)(TextCursor &, StructureModel &)) {
    const std::string name = "\\" + std::string(file);
    const CatalogueResult failed = {
        std::string(MessageText(Msg::CannotReadFile)) + std::string(jobFolder) + name, false};
    auto cursor =
        TextCursor::Open(NativePath(std::string(jobPath.empty() ? jobFolder : jobPath) + name));
    return cursor ? OrWhenOutOfMemory(failed, [&] { return parse(*cursor, model); }) : failed;
}

} // namespace

CatalogueResult ReadThicknessCards(std::string_view jobFolder, StructureModel &model,
                                   std::string_view jobPath) {
    return ReadCatalogue(jobFolder, jobPath, "spessori", model, ThicknessCards);
}

CatalogueResult ReadSectionCards(std::string_view jobFolder, StructureModel &model,
                                 std::string_view jobPath) {
    return ReadCatalogue(jobFolder, jobPath, "sezioni_", model, SectionCards);
}

CatalogueResult ParseThicknessCards(std::string text, StructureModel &model) {
    TextCursor cursor(std::move(text));
    return ThicknessCards(cursor, model);
}

CatalogueResult ParseSectionCards(std::string text, StructureModel &model) {
    TextCursor cursor(std::move(text));
    return SectionCards(cursor, model);
}

namespace {

CatalogueResult ThicknessCards(TextCursor &cursor, StructureModel &model) {
    int n = ReadCardCount(cursor);
    if (n > kMaxThicknessCards)
        return {std::string(MessageText(Msg::TooManyThicknessCards)), true};
    model.thicknessCardCount = 0;
    for (int k = 0; k < n; ++k) {
        std::string_view thickness;
        if (!SkipFields(cursor, 3) || !ReadNumberField(cursor, thickness))
            break;
        model.thicknessValues[k] = LeadingNumber(thickness);
        model.thicknessCardCount = static_cast<std::int16_t>(k + 1);
        if (!SkipFields(cursor, 1))
            break;
    }
    return {};
}

CatalogueResult SectionCards(TextCursor &cursor, StructureModel &model) {
    int n = ReadCardCount(cursor);
    if (n > kMaxSectionCards)
        return {std::string(MessageText(Msg::TooManySectionCards)), true};
    for (int k = 0; k < n; ++k) {
        std::string_view name;
        if (!SkipFields(cursor, 1) || !ReadTextField(cursor, name))
            break;
        if (name.substr(0, 2) == "P_")
            name.remove_prefix(2);
        model.sectionNames[k] = std::string(name);
        if (!SkipFields(cursor, 13))
            break;
    }
    return {};
}

} // namespace
} // namespace vorna
