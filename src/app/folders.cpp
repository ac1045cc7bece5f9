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

// The value of the "diroot=" key (the key in any letter case, the value as spelled), or nothing
// when the argument has none.
std::optional<std::string> RootFromArgument(std::string_view commandLine) {
    const std::string line = LowerCase(commandLine);
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
    return Trim(commandLine.substr(p, end - p));
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
    std::string rootPath = *root;
    f.rootFolder = LowerCase(rootPath);

    auto dirlav = TextCursor::Open(NativePath(rootPath + "\\impostazioni\\dirlav"));
    std::string_view first;
    if (!dirlav || !ReadTextField(*dirlav, first))
        return SettingsFileError(ui, f.rootFolder, "dirlav");
    std::string jobsPath = Trim(first);
    f.jobsFolder = LowerCase(jobsPath);
    if (f.jobsFolder.size() < 9)
        return SettingsFileError(ui, f.rootFolder, "dirlav");
    // Settings files may use "/" on POSIX systems.
    if (!IsSeparator(f.jobsFolder.back())) {
        f.jobsFolder += "\\";
        jobsPath += "\\";
    }
    if (f.jobsFolder.substr(f.jobsFolder.size() - 7, 6) != "lavori")
        return Fatal(ui, "Errore: il direttorio dei lavori deve terminare con < \\lavori >",
                     MsgIcon::Exclamation);
    if (f.rootFolder.size() < 3)
        return SettingsFileError(ui, f.rootFolder, "dirlav");
    if (f.rootFolder.back() == '\\') {
        f.rootFolder.pop_back();
        rootPath.pop_back();
    }

    auto lavoro = TextCursor::Open(NativePath(rootPath + "\\impostazioni\\lavoro"));
    std::string_view line;
    if (!lavoro || !ReadLine(*lavoro, line))
        return SettingsFileError(ui, f.rootFolder, "lavoro");
    f.jobName = Trim(line);
    if (f.jobName.size() != 6)
        return SettingsFileError(ui, f.rootFolder, "lavoro");

    f.jobFolder = f.jobsFolder + f.jobName;
    f.programsFolder = f.rootFolder + "\\progra";
    f.customFolder = f.rootFolder + "\\custom";
    f.jobPath = jobsPath + f.jobName;
    f.programsPath = rootPath + "\\progra";
    f.customPath = rootPath + "\\custom";
    return f;
}

} // namespace vorna
