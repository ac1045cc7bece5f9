// The one way every file is written: whole or not at all, where its links lead, keeping its mode.
#include "platform/text_file.h"

#include "platform/write_faults.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#else
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace vorna {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
constexpr unsigned long long kLargestProcessId = 0xFFFFFFFFU; // a DWORD
#else
// A pid_t; above it the number would name no process but a group, or all of them, to kill().
constexpr unsigned long long kLargestProcessId = std::numeric_limits<pid_t>::max();
#endif

// The faults a test installed on this thread; none in the program.
thread_local const WriteFaults *installedFaults = nullptr;

bool Fails(WriteStep step, const fs::path &target) {
    return installedFaults != nullptr && installedFaults->failsAt &&
           installedFaults->failsAt(step, target);
}

// The file a path names once its links are followed (a chain of them, relative or not); the
// path itself when it is no link. A loop of links is cut after as many steps as the system
// allows.
fs::path ResolveLinks(fs::path path) {
    for (int step = 0; step < 40; ++step) {
        std::error_code ec;
        if (!fs::is_symlink(fs::symlink_status(path, ec)))
            return path;
        fs::path next = fs::read_symlink(path, ec);
        if (ec)
            return path;
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return path;
}

// A name beside the target that no other run takes: the process and 64 random bits.
fs::path TemporaryName(const fs::path &target) {
    std::random_device device;
    const std::uint64_t bits = (static_cast<std::uint64_t>(device()) << 32U) ^ device();
#ifdef _WIN32
    const unsigned long process = GetCurrentProcessId();
#else
    const unsigned long process = static_cast<unsigned long>(::getpid());
#endif
    std::array<char, 64> suffix{};
    std::snprintf(suffix.data(), suffix.size(), ".%lu-%016llx.vorna-tmp", process,
                  static_cast<unsigned long long>(bits));
    fs::path temp = target;
    temp += suffix.data();
    return temp;
}

using NameChar = fs::path::value_type;
using Name = std::basic_string_view<NameChar>;

// Takes ascii off the front of name when name starts with it.
bool TakeText(Name &name, std::string_view ascii) {
    if (name.size() < ascii.size())
        return false;
    for (std::size_t i = 0; i < ascii.size(); ++i)
        if (name[i] != static_cast<NameChar>(ascii[i]))
            return false;
    name.remove_prefix(ascii.size());
    return true;
}

bool IsDigit(NameChar c) {
    return c >= '0' && c <= '9';
}
bool IsLowerHexDigit(NameChar c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f');
}

// Takes the characters that pass test off the front of name; how many they were.
std::size_t TakeRun(Name &name, bool (*test)(NameChar)) {
    std::size_t n = 0;
    while (n < name.size() && test(name[n]))
        ++n;
    name.remove_prefix(n);
    return n;
}

// The process that named a file as one of target's temporary files, the name exactly as
// TemporaryName makes it: NAME.PID-RANDOM.vorna-tmp, the process id without leading zeros and
// RANDOM sixteen lower-case hexadecimal digits. Nothing for any other name.
std::optional<unsigned long> TemporaryOwner(Name name, Name target) {
    if (name.substr(0, target.size()) != target)
        return std::nullopt;
    name.remove_prefix(target.size());
    if (!TakeText(name, ".") || name.empty() || name[0] == '0')
        return std::nullopt;
    const Name digits = name;
    const Name id = digits.substr(0, TakeRun(name, IsDigit));
    if (id.empty() || !TakeText(name, "-") || TakeRun(name, IsLowerHexDigit) != 16 ||
        !TakeText(name, ".vorna-tmp") || !name.empty())
        return std::nullopt;
    unsigned long long process = 0;
    for (NameChar digit : id) {
        process = process * 10 + static_cast<unsigned>(digit - '0');
        if (process > kLargestProcessId)
            return std::nullopt;
    }
    return static_cast<unsigned long>(process);
}

enum class Created { Yes, Taken, Refused, Failed };

// What the target is before the write.
struct Existing {
    bool exists = false;
    bool regular = false;
    bool readOnly = false;
#ifndef _WIN32
    struct stat status {};
#endif
};

// A file being written, closed when it goes.
class File {
public:
    File() = default;
    File(const File &) = delete;
    File &operator=(const File &) = delete;
    ~File() { Close(); }

    Created CreateNew(const fs::path &path, const Existing &old);
    bool OpenExisting(const fs::path &path);
    bool Write(std::string_view bytes);
    // Cuts what an older, longer text left after the new one (a file written in place).
    bool EndHere(bool regular);
    bool Flush();
    bool Close();

private:
#ifdef _WIN32
    HANDLE handle_ = INVALID_HANDLE_VALUE;
#else
    int fd_ = -1;
#endif
};

#ifdef _WIN32

Existing Inspect(const fs::path &target) {
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return {};
    return {true,
            (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
                (attributes & FILE_ATTRIBUTE_DEVICE) == 0,
            (attributes & FILE_ATTRIBUTE_READONLY) != 0};
}

Created File::CreateNew(const fs::path &path, const Existing &) {
    handle_ = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                          FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle_ != INVALID_HANDLE_VALUE)
        return Created::Yes;
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS)
        return Created::Taken;
    return error == ERROR_ACCESS_DENIED ? Created::Refused : Created::Failed;
}

bool File::OpenExisting(const fs::path &path) {
    handle_ = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                          FILE_ATTRIBUTE_NORMAL, nullptr);
    return handle_ != INVALID_HANDLE_VALUE;
}

bool File::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const DWORD chunk = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30U));
        if (!WriteFile(handle_, bytes.data(), chunk, &written, nullptr) || written == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

bool File::EndHere(bool) {
    return SetEndOfFile(handle_) != 0;
}

bool File::Flush() {
    return FlushFileBuffers(handle_) != 0;
}

bool File::Close() {
    if (handle_ == INVALID_HANDLE_VALUE)
        return true;
    const bool closed = CloseHandle(handle_) != 0;
    handle_ = INVALID_HANDLE_VALUE;
    return closed;
}

bool Replace(const fs::path &temp, const fs::path &target) {
    return MoveFileExW(temp.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

void Remove(const fs::path &temp) {
    DeleteFileW(temp.c_str());
}

// Whether a process has ended. One that cannot be opened for other reasons (another user's) runs.
bool ProcessEnded(unsigned long id) {
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(id));
    if (process == nullptr)
        return GetLastError() == ERROR_INVALID_PARAMETER;
    const bool ended = WaitForSingleObject(process, 0) == WAIT_OBJECT_0;
    CloseHandle(process);
    return ended;
}

// Windows ends a console program on Ctrl+C without running anything of it that could remove
// the temporary file; the next save of the file removes it (RemoveOrphanedTemporaries).
class SignalGuard {
public:
    explicit SignalGuard(const fs::path &) {}
    void Arm() {}
};

#else

Existing Inspect(const fs::path &target) {
    Existing e;
    if (::stat(target.c_str(), &e.status) != 0)
        return e;
    e.exists = true;
    e.regular = S_ISREG(e.status.st_mode);
    // A file without write permission is read-only to its owner's intent even where this user
    // could write it anyway (root).
    e.readOnly =
        e.regular && ((e.status.st_mode & 0222U) == 0 || ::access(target.c_str(), W_OK) != 0);
    return e;
}

Created File::CreateNew(const fs::path &path, const Existing &old) {
    const mode_t mode = old.exists ? (old.status.st_mode & 07777U) : 0666U;
    fd_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    if (fd_ < 0) {
        if (errno == EEXIST)
            return Created::Taken;
        return errno == EACCES || errno == EPERM ? Created::Refused : Created::Failed;
    }
    if (old.exists) {
        // The owner where this user may give it (root); the mode after it, since a change of
        // owner clears the set-id bits.
        if ((::fchown(fd_, old.status.st_uid, old.status.st_gid) != 0 && errno != EPERM) ||
            ::fchmod(fd_, old.status.st_mode & 07777U) != 0) {
            Close();
            ::unlink(path.c_str());
            return Created::Failed;
        }
    }
    return Created::Yes;
}

bool File::OpenExisting(const fs::path &path) {
    // A pipe nobody reads would block the program: it is refused instead.
    fd_ = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0)
        return false;
    const int flags = ::fcntl(fd_, F_GETFL);
    return flags >= 0 && ::fcntl(fd_, F_SETFL, flags & ~O_NONBLOCK) == 0;
}

bool File::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd_, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

bool File::EndHere(bool regular) {
    const off_t end = ::lseek(fd_, 0, SEEK_CUR);
    return !regular || (end >= 0 && ::ftruncate(fd_, end) == 0);
}

bool File::Flush() {
    return ::fsync(fd_) == 0 || errno == EINVAL;
}

bool File::Close() {
    if (fd_ < 0)
        return true;
    const bool closed = ::close(fd_) == 0;
    fd_ = -1;
    return closed;
}

bool Replace(const fs::path &temp, const fs::path &target) {
    if (::rename(temp.c_str(), target.c_str()) != 0)
        return false;
    // The new name reaches the disk with the folder.
    const int folder = ::open(target.parent_path().empty() ? "." : target.parent_path().c_str(),
                              O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
    return true;
}

void Remove(const fs::path &temp) {
    ::unlink(temp.c_str());
}

// Whether a process has ended. One this user may not signal (another user's) runs.
bool ProcessEnded(unsigned long id) {
    return ::kill(static_cast<pid_t>(id), 0) != 0 && errno == ESRCH;
}

// The temporary file of the write under way, for the signal handler. A handler can reach
// nothing else: these two are the program's only globals, kept as plain bytes so that the
// handler does nothing a signal may not (no allocation, no lock).
std::array<char, PATH_MAX> signalledTemp{};
volatile std::sig_atomic_t tempPending = 0;

extern "C" void RemoveTempAndEnd(int signal) {
    if (tempPending != 0)
        ::unlink(signalledTemp.data());
    // The action was reset to the default on entry: the signal ends the program as it would
    // have without the write.
    ::raise(signal);
}

// Takes over the signals that end a run for as long as a temporary file exists; a signal the
// user ignores (nohup) or that the program handles itself is left as it is.
class SignalGuard {
public:
    explicit SignalGuard(const fs::path &temp) {
        const std::string &name = temp.native();
        if (name.size() >= signalledTemp.size())
            return;
        std::memcpy(signalledTemp.data(), name.c_str(), name.size() + 1);
        stored_ = true;
        struct sigaction action {};
        action.sa_handler = RemoveTempAndEnd;
        action.sa_flags = SA_RESETHAND;
        sigemptyset(&action.sa_mask);
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            taken_[i] = ::sigaction(kSignals[i], nullptr, &previous_[i]) == 0 &&
                        previous_[i].sa_handler == SIG_DFL &&
                        (previous_[i].sa_flags & SA_SIGINFO) == 0 &&
                        ::sigaction(kSignals[i], &action, nullptr) == 0;
        }
    }
    ~SignalGuard() {
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            if (taken_[i])
                ::sigaction(kSignals[i], &previous_[i], nullptr);
        tempPending = 0;
    }
    SignalGuard(const SignalGuard &) = delete;
    SignalGuard &operator=(const SignalGuard &) = delete;
    // The file exists and is this run's: from here a signal removes it. (Before, the name could
    // still be another run's file.)
    void Arm() {
        if (stored_)
            tempPending = 1;
    }

private:
    static constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};
    std::array<struct sigaction, 3> previous_{};
    std::array<bool, 3> taken_{};
    bool stored_ = false;
};

#endif

// A run killed while saving (SIGKILL, a power cut) leaves its temporary file behind: before a
// save, the temporary files of the same target whose process has ended go. A live run's file,
// anything that is no regular file (a folder, a link: never followed) and every other name stay.
void RemoveOrphanedTemporaries(const fs::path &target) {
    const fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    const fs::path::string_type targetName = target.filename().native();
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const fs::path::string_type name = it->path().filename().native();
        const std::optional<unsigned long> owner = TemporaryOwner(name, targetName);
        std::error_code statusError;
        if (owner && fs::is_regular_file(it->symlink_status(statusError)) && !statusError &&
            ProcessEnded(*owner))
            Remove(it->path());
    }
}

// Writes into the target itself: what cannot be replaced (a pipe, a device) or what lives in a
// folder that takes no new file. Not atomic, which is why it is the fallback only.
bool WriteInPlace(const fs::path &target, std::string_view content, bool regular) {
    File file;
    return file.OpenExisting(target) && file.Write(content) && file.EndHere(regular) &&
           (!regular || file.Flush()) && file.Close();
}

// Writes the whole text to the temporary file; half of it when a test makes the disk fill up.
bool FillTemporary(File &file, std::string_view content, const fs::path &target) {
    const bool full = Fails(WriteStep::Write, target);
    return file.Write(full ? content.substr(0, content.size() / 2) : content) && !full &&
           file.Flush() && file.Close();
}

} // namespace

ScopedWriteFaults::ScopedWriteFaults(const WriteFaults &faults) : previous_(installedFaults) {
    installedFaults = &faults;
}

ScopedWriteFaults::~ScopedWriteFaults() {
    installedFaults = previous_;
}

bool WriteFileAtomic(const fs::path &path, std::string_view content) {
    const fs::path target = ResolveLinks(path);
    const Existing old = Inspect(target);
    if (old.exists && !old.regular)
        return WriteInPlace(target, content, false);
    if (old.readOnly)
        return false;
    RemoveOrphanedTemporaries(target);
    for (int attempt = 0; attempt < 8; ++attempt) {
        const fs::path temp = TemporaryName(target);
        SignalGuard guard(temp);
        File file;
        const Created created =
            Fails(WriteStep::Open, path) ? Created::Failed : file.CreateNew(temp, old);
        if (created == Created::Taken)
            continue;
        if (created == Created::Refused && old.exists)
            return WriteInPlace(target, content, true);
        if (created != Created::Yes)
            return false;
        guard.Arm();
        if (FillTemporary(file, content, path) && !Fails(WriteStep::Rename, path) &&
            Replace(temp, target))
            return true;
        file.Close();
        Remove(temp);
        return false;
    }
    return false;
}

} // namespace vorna
