// The system's folder and file names ("folder\name", Windows-1252) turned into real paths.
#include "platform/native_path.h"

#include "platform/text.h"

#include <string>

#ifdef _WIN32
#include <windows.h>
#else
#include <system_error>
#endif

namespace vorna {

#ifdef _WIN32

std::filesystem::path PathFromUtf8(std::string_view utf8) {
    if (utf8.empty())
        return {};
    const int size = static_cast<int>(utf8.size());
    const int wide = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(wide), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), wide);
    return std::filesystem::path(std::move(text));
}

std::filesystem::path NativePath(std::string_view name) {
    return PathFromUtf8(Cp1252ToUtf8(name));
}

#else

namespace {

// The entry of folder whose name equals component apart from letter case, if there is one.
std::filesystem::path MatchInFolder(const std::filesystem::path &folder,
                                    const std::string &component) {
    std::error_code ec;
    std::filesystem::path exact = folder / component;
    if (std::filesystem::exists(exact, ec))
        return exact;
    std::string wanted = LowerCase(Utf8ToCp1252(component));
    std::filesystem::directory_iterator it(folder.empty() ? "." : folder, ec);
    for (; !ec && it != std::filesystem::directory_iterator(); it.increment(ec)) {
        std::string name = it->path().filename().string();
        if (LowerCase(Utf8ToCp1252(name)) == wanted)
            return folder / name;
    }
    return exact;
}

} // namespace

std::filesystem::path PathFromUtf8(std::string_view utf8) {
    return std::filesystem::path(utf8);
}

std::filesystem::path NativePath(std::string_view name) {
    std::string utf8 = Cp1252ToUtf8(name);
    std::filesystem::path result;
    std::size_t i = 0;
    if (!utf8.empty() && (utf8[0] == '/' || utf8[0] == '\\')) {
        result = "/";
        i = 1;
    }
    bool stillExists = true;
    while (i <= utf8.size()) {
        std::size_t j = utf8.find_first_of("/\\", i);
        if (j == std::string::npos)
            j = utf8.size();
        std::string component = utf8.substr(i, j - i);
        i = j + 1;
        if (component.empty() || component == ".")
            continue;
        if (component == ".." || !stillExists) {
            result /= component;
            continue;
        }
        result = MatchInFolder(result, component);
        std::error_code ec;
        stillExists = std::filesystem::exists(result, ec);
    }
    return result;
}

#endif

} // namespace vorna
