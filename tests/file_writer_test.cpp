// Tests of the one file writer: whole files under races and signals, links, modes, pipes.
#include "platform/text_file.h"
#include "platform/write_faults.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>
#include <thread>

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#endif

namespace vorna {
namespace {

namespace fs = std::filesystem;

std::size_t EntriesIn(const fs::path &folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

TEST(FileWriter, ReplacesWholeFilesOrNothing) {
    test::TempDir dir;
    auto target = dir.path() / "out.txt";
    ASSERT_TRUE(WriteFileAtomic(target, "one\r\n"));
    for (WriteStep step : {WriteStep::Open, WriteStep::Write, WriteStep::Rename}) {
        // Faults last as long as the object that installed them.
        WriteFaults refuse{[&](WriteStep s, const fs::path &) { return s == step; }};
        ScopedWriteFaults installed(refuse);
        EXPECT_FALSE(WriteFileAtomic(target, "two\r\n"));
    }
    EXPECT_EQ(test::ReadBytes(target), "one\r\n");
    ASSERT_TRUE(WriteFileAtomic(target, "two\r\n"));
    EXPECT_EQ(test::ReadBytes(target), "two\r\n");
    EXPECT_FALSE(WriteFileAtomic(dir.path() / "missing" / "out.txt", "x"));
    EXPECT_EQ(EntriesIn(dir.path()), 1U);
}

// The id of a process that has ended.
unsigned long EndedProcessId() {
#ifdef _WIN32
    std::wstring self(MAX_PATH, L'\0');
    self.resize(GetModuleFileNameW(nullptr, self.data(), MAX_PATH));
    std::wstring line = L"\"" + self + L"\" --gtest_list_tests --gtest_filter=-*";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION child{};
    if (!CreateProcessW(self.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW,
                        nullptr, nullptr, &startup, &child))
        return 0;
    WaitForSingleObject(child.hProcess, INFINITE);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    return child.dwProcessId;
#else
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return static_cast<unsigned long>(child);
#endif
}

// A save removes the temporary files an ended run left of the same file, and nothing else: a live
// run's, a folder or a link (never followed) by such a name, and every name the writer would not
// have made stay.
TEST(FileWriter, ASaveRemovesOnlyTheTemporaryFilesOfEndedRuns) {
    test::TempDir dir;
    const fs::path target = dir.path() / "Collegamenti.txt";
    test::WriteBytes(target, "old\r\n");
    const std::string pid = std::to_string(EndedProcessId());
    const std::string ended = "Collegamenti.txt." + pid;
#ifdef _WIN32
    const std::string live = "Collegamenti.txt." + std::to_string(GetCurrentProcessId());
#else
    const std::string live = "Collegamenti.txt." + std::to_string(::getpid());
#endif
    const fs::path orphan = dir.path() / (ended + "-0123456789abcdef.vorna-tmp");
    test::WriteBytes(orphan, "half a text");
    for (const std::string &name : std::initializer_list<std::string>{
             live + "-0123456789abcdef.vorna-tmp",
             ended + "-00000000000000AA.vorna-tmp",
             ended + "-00000000000000b.vorna-tmp",
             ended + "-00000000000000cc.vorna-tmp.old",
             ended + "-00000000000000dd.vorna-tmp-",
             "Collegamenti.txt.0" + pid + "-00000000000000ee.vorna-tmp",
             "Collegamenti.txt.x" + pid + "-00000000000000ee.vorna-tmp",
             "Collegamenti.txt.-" + pid + "-00000000000000ee.vorna-tmp",
             // a number beyond any process that a cut to 32 bits would take for the ended one
             "Collegamenti.txt." + std::to_string(std::stoull(pid) + (1ULL << 32U)) +
                 "-00000000000000ee.vorna-tmp",
             "Collegamenti.txtX." + pid + "-00000000000000ee.vorna-tmp",
             "Dati_Coll_3D.txt." + pid + "-00000000000000ee.vorna-tmp",
         })
        test::WriteBytes(dir.path() / name, "not a temporary file of this save");
    fs::create_directory(dir.path() / (ended + "-00000000000000ff.vorna-tmp"));
#ifndef _WIN32
    test::WriteBytes(dir.path() / "outside.txt", "not yours\r\n");
    fs::create_symlink(dir.path() / "outside.txt",
                       dir.path() / (ended + "-1111111111111111.vorna-tmp"));
#endif
    const std::size_t entries = EntriesIn(dir.path());
    ASSERT_TRUE(WriteFileAtomic(target, "new\r\n"));
    EXPECT_FALSE(fs::exists(orphan));
    EXPECT_EQ(EntriesIn(dir.path()), entries - 1);
#ifndef _WIN32
    EXPECT_EQ(test::ReadBytes(dir.path() / "outside.txt"), "not yours\r\n");
#endif
}

#ifndef _WIN32

// Runs body in a child process; its wait status.
int InChild(const std::function<void()> &body) {
    const pid_t child = ::fork();
    if (child == 0) {
        body();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

// Two runs save one file at once, one of them held up between creating its temporary file and
// writing it: the file is always one run's text whole, never a mix of both.
TEST(FileWriter, TwoProcessesNeverMixTheirTexts) {
    test::TempDir dir;
    const fs::path target = dir.path() / "Collegamenti.txt";
    std::string slow, fast;
    for (int i = 0; i < 40; ++i)
        slow += "slow run\r\n";
    for (int i = 0; i < 90; ++i)
        fast += "the other, faster run\r\n";
    constexpr int kRounds = 30;
    for (int round = 0; round < kRounds; ++round) {
        test::WriteBytes(target, "old\r\n");
        const pid_t held = ::fork();
        if (held == 0) {
            WriteFaults wait{[](WriteStep s, const fs::path &) {
                if (s == WriteStep::Write)
                    std::this_thread::sleep_for(std::chrono::milliseconds(20));
                return false;
            }};
            ScopedWriteFaults installed(wait);
            ::_exit(WriteFileAtomic(target, slow) ? 0 : 1);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(round % 3 * 4));
        const bool fastWritten = WriteFileAtomic(target, fast);
        int status = 0;
        ::waitpid(held, &status, 0);
        const std::string bytes = test::ReadBytes(target);
        ASSERT_TRUE(bytes == slow || bytes == fast) << "round " << round << ": " << bytes.size();
        EXPECT_TRUE(fastWritten);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
        ASSERT_EQ(EntriesIn(dir.path()), 1U) << "round " << round;
    }
}

// A run killed in the middle of a save (SIGKILL: nothing of it runs after) leaves its temporary
// file; the next run writes the file whole and leaves none.
TEST(FileWriter, TheRunAfterOneKilledWhileSavingLeavesNoTemporaryFile) {
    test::TempDir dir;
    const fs::path target = dir.path() / "Collegamenti.txt";
    test::WriteBytes(target, "old\r\n");
    std::array<int, 2> saving{};
    ASSERT_EQ(::pipe(saving.data()), 0);
    const pid_t killed = ::fork();
    if (killed == 0) {
        WriteFaults stop{[&](WriteStep s, const fs::path &) {
            if (s == WriteStep::Write && ::write(saving[1], "w", 1) == 1)
                ::pause();
            return false;
        }};
        ScopedWriteFaults installed(stop);
        ::_exit(WriteFileAtomic(target, "killed\r\n") ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(::read(saving[0], &byte, 1), 1);
    ::kill(killed, SIGKILL);
    ::waitpid(killed, nullptr, 0);
    ::close(saving[0]);
    ::close(saving[1]);
    ASSERT_EQ(EntriesIn(dir.path()), 2U);
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "COLL18 the next run\r\n";
    ASSERT_TRUE(WriteFileAtomic(target, text));
    EXPECT_EQ(test::ReadBytes(target), text);
    EXPECT_EQ(EntriesIn(dir.path()), 1U);
}

// A signal that ends the program during a save removes the temporary file; the old file stays.
TEST(FileWriter, EachEndingSignalRemovesTheTemporaryFile) {
    for (int signal : {SIGTERM, SIGINT, SIGHUP}) {
        test::TempDir dir;
        const fs::path target = dir.path() / "VornaOut.txt";
        test::WriteBytes(target, "old\r\n");
        const int status = InChild([&] {
            WriteFaults signalled{[&](WriteStep s, const fs::path &) {
                if (s == WriteStep::Write)
                    ::raise(signal);
                return false;
            }};
            ScopedWriteFaults installed(signalled);
            WriteFileAtomic(target, "new\r\n");
        });
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
        EXPECT_EQ(EntriesIn(dir.path()), 1U) << signal;
        EXPECT_EQ(test::ReadBytes(target), "old\r\n");
    }
    // After a save the signals end the program as before it.
    struct sigaction now {};
    ::sigaction(SIGTERM, nullptr, &now);
    EXPECT_EQ(now.sa_handler, SIG_DFL);
}

// Links: a link at the target is followed to the file it names, which is written in its place;
// a link planted where a temporary file could be is never followed.
TEST(FileWriter, LinksLeadToTheRealFileAndPlantedOnesAreNotFollowed) {
    test::TempDir dir;
    test::WriteBytes(dir.path() / "shared/VorNOpzi.txt", "shared\r\n");
    test::WriteBytes(dir.path() / "outside.txt", "not yours\r\n");
    fs::create_directories(dir.path() / "custom");
    const fs::path link = dir.path() / "custom/VorNOpzi.txt";
    fs::create_symlink("../shared/VorNOpzi.txt", link);
    fs::create_symlink(link, dir.path() / "custom/again.txt");
    fs::create_symlink(dir.path() / "outside.txt", dir.path() / "shared/VorNOpzi.txt.vorna-tmp");

    ASSERT_TRUE(WriteFileAtomic(dir.path() / "custom/again.txt", "saved\r\n"));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(test::ReadBytes(dir.path() / "shared/VorNOpzi.txt"), "saved\r\n");
    EXPECT_FALSE(fs::is_symlink(dir.path() / "shared/VorNOpzi.txt"));
    EXPECT_EQ(test::ReadBytes(dir.path() / "outside.txt"), "not yours\r\n");
    EXPECT_EQ(EntriesIn(dir.path() / "shared"), 2U);
}

// The old file's mode (and owner, where the user may give it) is the new file's; a file nobody
// may write is refused and kept.
TEST(FileWriter, ModeAndOwnerAreKeptAndReadOnlyFilesRefused) {
    test::TempDir dir;
    const fs::path target = dir.path() / "Collegamenti.txt";
    test::WriteBytes(target, "old\r\n");
    ASSERT_EQ(::chmod(target.c_str(), 0640), 0);
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::chown(target.c_str(), 65534, 65534), 0);
    }
    ASSERT_TRUE(WriteFileAtomic(target, "new\r\n"));
    struct stat after {};
    ASSERT_EQ(::stat(target.c_str(), &after), 0);
    EXPECT_EQ(after.st_mode & 07777U, 0640U);
    if (root) {
        EXPECT_EQ(after.st_uid, 65534U);
    }

    ASSERT_EQ(::chmod(target.c_str(), 0444), 0);
    EXPECT_FALSE(WriteFileAtomic(target, "newer\r\n"));
    EXPECT_EQ(test::ReadBytes(target), "new\r\n");
    EXPECT_EQ(EntriesIn(dir.path()), 1U);
}

// A pipe is written into while someone reads it, and refused (without waiting) when nobody does.
TEST(FileWriter, PipesAreWrittenIntoNotReplaced) {
    test::TempDir dir;
    const fs::path pipe = dir.path() / "Dati_Coll_3D.txt";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0644), 0);
    EXPECT_FALSE(WriteFileAtomic(pipe, "nobody reads\r\n"));
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    ASSERT_TRUE(WriteFileAtomic(pipe, "COLL18\r\n"));
    std::array<char, 64> got{};
    EXPECT_EQ(::read(reader, got.data(), got.size()), 8);
    EXPECT_EQ(std::string(got.data()), "COLL18\r\n");
    ::close(reader);
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(EntriesIn(dir.path()), 1U);
}

#endif

} // namespace
} // namespace vorna
