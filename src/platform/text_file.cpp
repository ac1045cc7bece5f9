// Reading the suite's text files a line at a time: line and field cursors (CR LF, CR or LF ends a
// line).
#include "platform/text_file.h"

#include "platform/number_text.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <system_error>

namespace vorna {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;
// What an overlong line reads as.
constexpr char kOverlongLine = '\0';

bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

// 0x80 in each of the eight bytes of word that equals value, 0 in the others. Exact: the sums
// stay within their byte, so that no byte marks another.
std::uint64_t BytesEqual(std::uint64_t word, char value) {
    constexpr std::uint64_t kLows = 0x7F7F7F7F7F7F7F7FU;
    const std::uint64_t x = word ^ (0x0101010101010101U * static_cast<unsigned char>(value));
    return ~(((x & kLows) + kLows) | x | kLows);
}

// The position of the first CR or LF in text from `from` on, text.size() when there is none;
// eight bytes are tested at once.
std::size_t FindLineEnd(std::string_view text, std::size_t from) {
    for (; from + 8 <= text.size(); from += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + from, sizeof word);
        if (const std::uint64_t ends = BytesEqual(word, '\r') | BytesEqual(word, '\n')) {
            const int bit = std::endian::native == std::endian::little ? std::countr_zero(ends)
                                                                       : std::countl_zero(ends);
            return from + static_cast<std::size_t>(bit / 8);
        }
    }
    while (from < text.size() && text[from] != '\r' && text[from] != '\n')
        ++from;
    return from;
}

} // namespace

TextCursor::TextCursor(std::string text)
    : buffer_(text.begin(), text.end()), bufferEnd_(buffer_.size()) {}

std::optional<TextCursor> TextCursor::Open(const std::filesystem::path &path) {
    // A folder or a pipe by that name is not the file: opening a pipe would wait for a writer.
    if (!FileExists(path))
        return std::nullopt;
#ifdef _WIN32
    std::FILE *file = _wfopen(path.c_str(), L"rb");
#else
    std::FILE *file = std::fopen(path.c_str(), "rb");
#endif
    if (file == nullptr)
        return std::nullopt;
    TextCursor cursor{std::string()};
    cursor.file_.reset(file);
    return cursor;
}

// Reads the next piece of the file after the bytes not yet taken, which move to the front of the
// buffer; false at the end of the file. A long line still being gathered doubles the piece, so
// that its bytes move a few times at most.
bool TextCursor::ReadMore() {
    if (!file_)
        return false;
    const std::size_t kept = bufferEnd_ - bufferPos_;
    if (kept > 0)
        std::memmove(buffer_.data(), buffer_.data() + bufferPos_, kept);
    bufferPos_ = 0;
    bufferEnd_ = kept;
    const std::size_t piece = std::max(kPiece, kept);
    if (buffer_.size() < kept + piece)
        buffer_.resize(kept + piece);
    const std::size_t read = std::fread(buffer_.data() + kept, 1, piece, file_.get());
    bufferEnd_ += read;
    if (read == 0)
        file_.reset();
    return read > 0;
}

// The length of the line at bufferPos_: its end (CR, LF, or the end of the file) is then at
// bufferPos_ + length, with the byte after a CR already read. A kept line is gathered whole up to
// a length beyond kMaxLineLength; one not kept is passed over as it is read.
std::size_t TextCursor::LineLength(bool keep) {
    std::size_t n = 0;
    for (;;) {
        const char *start = buffer_.data() + bufferPos_;
        const std::size_t available = bufferEnd_ - bufferPos_;
        n = FindLineEnd(std::string_view(start, available), n);
        if (keep && n > kMaxLineLength)
            return n;
        // A CR read last may be the first half of a CR LF.
        if (n < available && (start[n] != '\r' || n + 1 < available))
            return n;
        if (!keep) {
            bufferPos_ += n;
            n = 0;
        }
        if (!ReadMore())
            return n;
    }
}

// Consumes the line end at bufferPos_; false at the end of the text.
bool TextCursor::TakeLineEnd() {
    if (bufferPos_ == bufferEnd_)
        return false;
    if (buffer_[bufferPos_++] == '\r' && bufferPos_ < bufferEnd_ && buffer_[bufferPos_] == '\n')
        ++bufferPos_;
    return true;
}

// Takes the next line into line_; false at the end of the text.
bool TextCursor::LoadLine() {
    // What is left of an overlong line goes first, unread, with its line end.
    if (skipping_) {
        bufferPos_ += LineLength(false);
        TakeLineEnd();
        skipping_ = false;
    }
    const std::size_t n = LineLength(true);
    if (bufferPos_ == bufferEnd_)
        return false;
    pos_ = 0;
    inLine_ = true;
    if (n > kMaxLineLength) {
        bufferPos_ += n;
        line_ = std::string_view(&kOverlongLine, 1);
        skipping_ = true;
        lineEnded_ = true; // known once it is passed over; taken as ended meanwhile
        return true;
    }
    line_ = std::string_view(buffer_.data() + bufferPos_, n);
    bufferPos_ += n;
    lineEnded_ = TakeLineEnd();
    return true;
}

bool TextCursor::EnsureLine() {
    return inLine_ || LoadLine();
}

bool TextCursor::AtEnd() {
    if (inLine_)
        return pos_ >= line_.size() && !lineEnded_;
    // Whether a line follows is known once it is taken (the next read uses it).
    return !LoadLine();
}

void TextCursor::SkipSpaces() {
    while (pos_ < line_.size() && IsSpace(line_[pos_]))
        ++pos_;
}

// After a field: a comma, or the line end, belongs to it.
void TextCursor::EndField() {
    if (pos_ < line_.size() && line_[pos_] == ',')
        ++pos_;
    else if (pos_ >= line_.size())
        inLine_ = false;
}

// A quoted field: the text up to the closing quote (or the line end).
std::string_view TextCursor::Quoted() {
    const std::size_t start = ++pos_;
    while (pos_ < line_.size() && line_[pos_] != '"')
        ++pos_;
    std::string_view field = line_.substr(start, pos_ - start);
    if (pos_ < line_.size())
        ++pos_;
    return field;
}

bool TextCursor::ReadLine(std::string_view &line) {
    if (AtEnd() || !EnsureLine())
        return false;
    line = line_.substr(pos_);
    pos_ = line_.size();
    inLine_ = false;
    return true;
}

bool TextCursor::ReadTextField(std::string_view &field) {
    if (AtEnd() || !EnsureLine())
        return false;
    SkipSpaces();
    if (pos_ < line_.size() && line_[pos_] == '"') {
        field = Quoted();
        while (pos_ < line_.size() && line_[pos_] != ',')
            ++pos_;
    } else {
        const std::size_t start = pos_;
        while (pos_ < line_.size() && line_[pos_] != ',')
            ++pos_;
        std::size_t end = pos_;
        while (end > start && IsSpace(line_[end - 1]))
            --end;
        field = line_.substr(start, end - start);
    }
    EndField();
    return true;
}

// Passes over the blanks and whole empty lines before a numeric field; false at the end of the
// file.
bool TextCursor::FindNumberField() {
    for (;;) {
        if (!EnsureLine())
            return false;
        SkipSpaces();
        if (pos_ < line_.size())
            return true;
        inLine_ = false;
    }
}

// Passes over the rest of an unquoted numeric field: a comma, a blank or the line end ends it.
void TextCursor::PassNumberField() {
    while (pos_ < line_.size() && line_[pos_] != ',' && !IsSpace(line_[pos_]))
        ++pos_;
}

// After a numeric field: the blanks and the comma or line end that belong to it.
void TextCursor::EndNumberField() {
    SkipSpaces();
    EndField();
}

bool TextCursor::ReadNumberField(std::string_view &field) {
    if (!FindNumberField())
        return false;
    if (line_[pos_] == '"') {
        field = Quoted();
    } else {
        const std::size_t start = pos_;
        PassNumberField();
        field = line_.substr(start, pos_ - start);
    }
    EndNumberField();
    return true;
}

bool TextCursor::ReadLeadingNumber(std::optional<double> &value) {
    if (!FindNumberField())
        return false;
    // A short integer is taken as it is read; its field cannot be a quoted one.
    if (auto integer = LeadingShortInteger(line_.substr(pos_))) {
        value = integer->value;
        pos_ += integer->length;
        PassNumberField();
        EndNumberField();
        return true;
    }
    std::string_view field;
    ReadNumberField(field);
    value = LeadingNumberIfAny(field);
    return true;
}

bool FileExists(const std::filesystem::path &path) {
    std::error_code ec;
    return std::filesystem::is_regular_file(path, ec);
}

void AppendLine(std::string &out, std::string_view line) {
    out += line;
    out += "\r\n";
}

bool AtEnd(TextCursor &cursor) {
    return cursor.AtEnd();
}

bool ReadLine(TextCursor &cursor, std::string_view &line) {
    return cursor.ReadLine(line);
}

bool ReadTextField(TextCursor &cursor, std::string_view &field) {
    return cursor.ReadTextField(field);
}

bool ReadNumberField(TextCursor &cursor, std::string_view &field) {
    return cursor.ReadNumberField(field);
}

bool ReadLeadingNumber(TextCursor &cursor, std::optional<double> &value) {
    return cursor.ReadLeadingNumber(value);
}

} // namespace vorna
