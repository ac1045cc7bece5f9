// Reading and writing the suite's text files: line and field cursors that read a file a line at
// a time (CR LF, CR or LF ends a line), and the one writer every file goes through.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

bool FileExists(const std::filesystem::path &path);

// Writes content where path leads (its links followed), so that a reader sees the old file or the
// new one whole, never a mix: a temporary file created exclusively beside the target under a
// name no other run takes, with the old file's mode and owner, flushed to disk and renamed over
// it. A read-only target is refused. What cannot be replaced is written into instead: a pipe or
// a device, and a writable file in a folder that takes no new file. A signal that ends the
// program meanwhile removes the temporary file first; the temporary files of the target that
// runs killed outright left behind go before the next save. False when the text did not reach
// the target whole (a replaced target is then untouched).
bool WriteFileAtomic(const std::filesystem::path &path, std::string_view content);

// Appends line and the CR LF that ends every line the program writes.
void AppendLine(std::string &out, std::string_view line);

// No line of any file the program reads comes near this length: a longer one is read as a
// single NUL byte, a value no reader takes, so that a file without line ends (or a damaged one)
// is never held in memory.
inline constexpr std::size_t kMaxLineLength = std::size_t{1} << 20U;

// A read position in a text, one line of it held at a time: a file read in pieces, or a text in
// memory (the tests' and the fuzzers').
class TextCursor {
public:
    explicit TextCursor(std::string text);
    // The file, or nothing when it is not a regular file (a folder, a pipe) or cannot be opened.
    static std::optional<TextCursor> Open(const std::filesystem::path &path);

    bool AtEnd();
    // The rest of the current line (the next one when it was finished), its line end consumed.
    bool ReadLine(std::string_view &line);
    bool ReadTextField(std::string_view &field);
    bool ReadNumberField(std::string_view &field);
    bool ReadLeadingNumber(std::optional<double> &value);

private:
    struct Closer {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };
    bool ReadMore();
    std::size_t LineLength(bool keep);
    bool TakeLineEnd();
    bool LoadLine();
    bool EnsureLine();
    void SkipSpaces();
    void EndField();
    bool FindNumberField();
    void PassNumberField();
    void EndNumberField();
    std::string_view Quoted();

    std::unique_ptr<std::FILE, Closer> file_;
    // Bytes read, [0, bufferEnd_); a vector, so that line_ stays valid when the cursor moves.
    std::vector<char> buffer_;
    std::size_t bufferEnd_ = 0;
    std::size_t bufferPos_ = 0; // the first byte not yet taken into a line
    std::string_view line_;     // the current line, without its end: a view into buffer_
    std::size_t pos_ = 0;       // the read position in it
    bool inLine_ = false;       // false once the line's end was consumed
    bool lineEnded_ = false;    // a line end (not the end of the file) follows the line
    bool skipping_ = false;     // the rest of an overlong line is still to be passed over
};

// What read returns, or failed when the machine runs out of memory on the way: an input can make
// its reader fail, never end the program.
template <class Result, class Read> Result OrWhenOutOfMemory(Result failed, Read &&read) {
    try {
        return read();
    } catch (const std::bad_alloc &) {
        return failed;
    }
}

bool AtEnd(TextCursor &cursor);
// The fields below are views into the cursor's current line, valid until the next read.
// The rest of the current line; its line end is consumed. False at the end of the file.
bool ReadLine(TextCursor &cursor, std::string_view &line);
// One field of a comma-separated list: leading blanks skipped, ends at a comma or the line end,
// double quotes removed, trailing blanks dropped. False at the end of the file.
bool ReadTextField(TextCursor &cursor, std::string_view &field);
// One numeric field: blanks and empty lines before it are skipped, and a blank ends it as well
// as a comma or the line end. The text of the field is returned for the caller to convert.
bool ReadNumberField(TextCursor &cursor, std::string_view &field);
// The leading number of the next numeric field, as LeadingNumberIfAny reads what ReadNumberField
// returns: nothing in value when the field has none. Short integers are read in one pass. False
// at the end of the file.
bool ReadLeadingNumber(TextCursor &cursor, std::optional<double> &value);

} // namespace vorna
