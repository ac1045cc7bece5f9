// Reading the suite's text files a line at a time: line and field cursors (CR LF, CR or LF ends a
// line).
#include "platform/text_file.h"

#include <cstring>
#include <system_error>

namespace vorna {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}
bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

} // namespace

TextCursor::TextCursor(std::string text) : buffer_(std::move(text)) {}

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

// The next byte not yet taken, or EOF; reads the next piece of the file when needed.
int TextCursor::PeekByte() {
    if (bufferPos_ == buffer_.size() && file_) {
        buffer_.resize(kPiece);
        buffer_.resize(std::fread(buffer_.data(), 1, kPiece, file_.get()));
        bufferPos_ = 0;
        if (buffer_.empty())
            file_.reset();
    }
    return bufferPos_ < buffer_.size() ? static_cast<unsigned char>(buffer_[bufferPos_]) : EOF;
}

// Takes the next line into line_; false at the end of the text.
bool TextCursor::LoadLine() {
    // What is left of an overlong line goes first, unread, with its line end.
    while (skipping_) {
        const int c = PeekByte();
        if (c == EOF) {
            skipping_ = false;
        } else if (IsLineEnd(static_cast<char>(c))) {
            skipping_ = false;
            if (buffer_[bufferPos_++] == '\r' && PeekByte() == '\n')
                ++bufferPos_;
        } else {
            while (bufferPos_ < buffer_.size() && !IsLineEnd(buffer_[bufferPos_]))
                ++bufferPos_;
        }
    }
    if (PeekByte() == EOF)
        return false;
    line_.clear();
    pos_ = 0;
    inLine_ = true;
    lineEnded_ = false;
    for (;;) {
        const int c = PeekByte();
        if (c == EOF)
            return true;
        const char *start = buffer_.data() + bufferPos_;
        const std::size_t available = buffer_.size() - bufferPos_;
        std::size_t n = 0;
        while (n < available && !IsLineEnd(start[n]))
            ++n;
        if (line_.size() + n > kMaxLineLength) {
            bufferPos_ += n;
            line_.assign(1, '\0');
            skipping_ = true;
            lineEnded_ = true; // known once it is passed over; taken as ended meanwhile
            return true;
        }
        line_.append(start, n);
        bufferPos_ += n;
        if (n < available) {
            lineEnded_ = true;
            if (buffer_[bufferPos_++] == '\r' && PeekByte() == '\n')
                ++bufferPos_;
            return true;
        }
    }
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
    std::string_view field = std::string_view(line_).substr(start, pos_ - start);
    if (pos_ < line_.size())
        ++pos_;
    return field;
}

bool TextCursor::ReadLine(std::string_view &line) {
    if (AtEnd() || !EnsureLine())
        return false;
    line = std::string_view(line_).substr(pos_);
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
        field = std::string_view(line_).substr(start, end - start);
    }
    EndField();
    return true;
}

bool TextCursor::ReadNumberField(std::string_view &field) {
    // Blanks and whole empty lines before the field.
    for (;;) {
        if (!EnsureLine())
            return false;
        SkipSpaces();
        if (pos_ < line_.size())
            break;
        inLine_ = false;
    }
    if (line_[pos_] == '"') {
        field = Quoted();
    } else {
        const std::size_t start = pos_;
        while (pos_ < line_.size() && line_[pos_] != ',' && !IsSpace(line_[pos_]))
            ++pos_;
        field = std::string_view(line_).substr(start, pos_ - start);
    }
    SkipSpaces();
    EndField();
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

} // namespace vorna
