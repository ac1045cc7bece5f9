// Reading and writing the suite's text files: whole-file reads, line and field cursors over the
// bytes (CR LF, CR or LF ends a line), and atomic writing (temporary file beside it, then rename).
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// The whole file's bytes, or nothing when it is not a regular file or cannot be read.
std::optional<std::string> ReadWholeFile(const std::filesystem::path &path);
bool FileExists(const std::filesystem::path &path);

// Writes content where path leads (its links followed), so that a reader sees the old file or the
// new one whole, never a mix: a temporary file created exclusively beside the target under a
// name no other run takes, with the old file's mode and owner, flushed to disk and renamed over
// it. A read-only target is refused. What cannot be replaced is written into instead: a pipe or
// a device, and a writable file in a folder that takes no new file. A signal that ends the
// program meanwhile removes the temporary file first. False when the text did not reach the
// target whole (a replaced target is then untouched).
bool WriteFileAtomic(const std::filesystem::path &path, std::string_view content);

// Appends line and the CR LF that ends every line the program writes.
void AppendLine(std::string &out, std::string_view line);

// A read position in a file's bytes.
struct TextCursor {
    std::string text;
    std::size_t pos = 0;
};

bool AtEnd(const TextCursor &cursor);
// The fields below are views into cursor.text, valid while the cursor lives.
// The rest of the current line; its line end is consumed. False at the end of the file.
bool ReadLine(TextCursor &cursor, std::string_view &line);
// One field of a comma-separated list: leading blanks skipped, ends at a comma or the line end,
// double quotes removed, trailing blanks dropped. False at the end of the file.
bool ReadTextField(TextCursor &cursor, std::string_view &field);
// One numeric field: blanks and empty lines before it are skipped, and a blank ends it as well
// as a comma or the line end. The text of the field is returned for the caller to convert.
bool ReadNumberField(TextCursor &cursor, std::string_view &field);

} // namespace vorna
