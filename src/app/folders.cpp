// The suite's folders, found from the command-line argument and the two settings files.
#include "app/folders.h"

#include "platform/native_path.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace vorna {
namespace {

std::nullopt_t Fatal(Ui &ui, const std::string &text, MsgIcon icon) {
    ui.MessageBox(text, "ERRORE", icon, MsgButtons::Ok);
    return std::nullopt;
}

std::nullopt_t SettingsFileError(Ui &ui, const std::string &root, const char *file) {
    return Fatal(ui, "Errore: file " + root + "\\impostazioni\\" + file + " errato o mancante",
                 MsgIcon::Exclamation);
}

// The value of the "diroot=" key, or nothing when the argument has none.
std::optional<std::string> RootFromArgument(std::string_view commandLine) {
    std::string line = LowerCase(commandLine);
    if (Trim(line).empty())
        return std::nullopt;
    const std::string key = "|diroot=";
    std::size_t p = line.find(key);
    if (p == std::string::npos)
        return std::nullopt;
    p += key.size();
    while (p < line.size() && line[p] == ' ')
        ++p;
    std::size_t end = line.find('|', p);
    if (end == std::string::npos) // no closing bar: no defined value
        return std::nullopt;
    return Trim(std::string_view(line).substr(p, end - p));
}

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

} // namespace

std::optional<Folders> SetUpFolders(std::string_view commandLine, Ui &ui) {
    auto root = RootFromArgument(commandLine);
    if (!root)
        return Fatal(ui, "Avvio del programma: argomento non presente", MsgIcon::Critical);
    Folders f;
    f.rootFolder = *root;

    auto dirlav = TextCursor::Open(NativePath(f.rootFolder + "\\impostazioni\\dirlav"));
    std::string_view first;
    if (!dirlav || !ReadTextField(*dirlav, first))
        return SettingsFileError(ui, f.rootFolder, "dirlav");
    f.jobsFolder = LowerCase(Trim(first));
    if (f.jobsFolder.size() < 9)
        return SettingsFileError(ui, f.rootFolder, "dirlav");
    // Settings files may use "/" on POSIX systems.
    if (!IsSeparator(f.jobsFolder.back()))
        f.jobsFolder += "\\";
    if (f.jobsFolder.substr(f.jobsFolder.size() - 7, 6) != "lavori")
        return Fatal(ui, "Errore: il direttorio dei lavori deve terminare con < \\lavori >",
                     MsgIcon::Exclamation);
    if (f.rootFolder.size() < 3)
        return SettingsFileError(ui, f.rootFolder, "dirlav");
    if (f.rootFolder.back() == '\\')
        f.rootFolder.pop_back();

    auto lavoro = TextCursor::Open(NativePath(f.rootFolder + "\\impostazioni\\lavoro"));
    std::string_view line;
    if (!lavoro || !ReadLine(*lavoro, line))
        return SettingsFileError(ui, f.rootFolder, "lavoro");
    f.jobName = Trim(line);
    if (f.jobName.size() != 6)
        return SettingsFileError(ui, f.rootFolder, "lavoro");

    f.jobFolder = f.jobsFolder + f.jobName;
    f.programsFolder = f.rootFolder + "\\progra";
    f.customFolder = f.rootFolder + "\\custom";
    return f;
}

} // namespace vorna
