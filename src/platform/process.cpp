// The process's command line and standard output, alike on every system.
#include "platform/process.h"

#ifdef _WIN32
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// windows.h first: shellapi.h needs its types.
#include <shellapi.h>
#endif

namespace vorna {

#ifdef _WIN32

namespace {

std::string Utf8Of(const wchar_t *wide) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 1)
        return {};
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
    text.pop_back(); // the terminating NUL
    return text;
}

} // namespace

std::vector<std::string> ProgramArguments(int, char **) {
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t **wide = CommandLineToArgvW(GetCommandLineW(), &count);
    if (wide == nullptr)
        return arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(Utf8Of(wide[i]));
    LocalFree(wide);
    return arguments;
}

void UseBinaryStandardOutput() {
    // A window program started from a console has no standard handles; one started with its
    // output redirected (a pipe, a file) has them and keeps them.
    const HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
    if ((out == nullptr || out == INVALID_HANDLE_VALUE) && AttachConsole(ATTACH_PARENT_PROCESS)) {
        if (std::freopen("CONOUT$", "w", stdout) == nullptr)
            return;
        if (std::freopen("CONOUT$", "w", stderr) == nullptr)
            return;
    }
    std::fflush(stdout);
    _setmode(_fileno(stdout), _O_BINARY);
}

#else

std::vector<std::string> ProgramArguments(int argc, char **argv) {
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

void UseBinaryStandardOutput() {}

#endif

} // namespace vorna
