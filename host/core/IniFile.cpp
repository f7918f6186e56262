#include "host/core/IniFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace host {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineBreaks{"\r\n\0", 3};

std::string_view Trim(std::string_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool SameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
        if (lower(a[i]) != lower(b[i])) return false;
    }
    return true;
}

bool IsBlank(char c) {
    return kBlanks.find(c) != std::string_view::npos;
}

bool HasSurroundingBlanks(std::string_view text) {
    return !text.empty() && (IsBlank(text.front()) || IsBlank(text.back()));
}

bool IsQuote(char c) {
    return c == '"' || c == '\'';
}

bool IsQuoted(std::string_view text) {
    return text.size() >= 2 && IsQuote(text.front()) && text.front() == text.back();
}

// What one line of the file is, with the parts a reader needs.
struct ParsedLine {
    enum Kind { BLANK, COMMENT, SECTION, ENTRY, OTHER };

    explicit ParsedLine(Kind kind = OTHER, std::string_view name = {}, std::string_view value = {},
                        size_t valueStart = 0)
        : kind(kind), name(name), value(value), valueStart(valueStart) {}

    Kind kind;
    std::string_view name;  // the section's or the key's
    std::string_view value;
    size_t valueStart;  // where the value's text starts in the line
};

ParsedLine ParseLine(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    if (trimmed.empty()) return ParsedLine(ParsedLine::BLANK);
    if (trimmed.front() == ';' || trimmed.front() == '#') return ParsedLine(ParsedLine::COMMENT);
    if (trimmed.front() == '[') {
        const size_t close = trimmed.find(']');
        if (close == std::string_view::npos) return ParsedLine();
        return ParsedLine(ParsedLine::SECTION, Trim(trimmed.substr(1, close - 1)));
    }
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos) return ParsedLine();
    const std::string_view key = Trim(text.substr(0, equals));
    if (key.empty()) return ParsedLine();
    size_t valueStart = equals + 1;
    while (valueStart < text.size() && IsBlank(text[valueStart])) ++valueStart;
    std::string_view value = Trim(text.substr(valueStart));
    if (IsQuoted(value)) value = value.substr(1, value.size() - 2);
    return ParsedLine(ParsedLine::ENTRY, key, value, valueStart);
}

// The value as it is written after '=', so that ParseLine gives it back unchanged.
std::string EncodeValue(std::string_view value) {
    if (HasSurroundingBlanks(value) || IsQuoted(value)) return '"' + std::string(value) + '"';
    return std::string(value);
}

bool ReadWholeFile(int fd, std::string& text) {
    char buffer[8192];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        if (n == 0) return true;
        text.append(buffer, size_t(n));
    }
}

}  // namespace

IniFile IniFile::Parse(std::string_view text) {
    IniFile ini;
    if (text.starts_with(kByteOrderMark)) {
        ini.bom_ = kByteOrderMark;
        text.remove_prefix(kByteOrderMark.size());
    }
    while (!text.empty()) {
        const size_t newline = text.find('\n');
        if (newline == std::string_view::npos) {
            ini.lines_.push_back({std::string(text), ""});
            break;
        }
        const bool crlf = newline > 0 && text[newline - 1] == '\r';
        const size_t textEnd = crlf ? newline - 1 : newline;
        ini.lines_.push_back({std::string(text.substr(0, textEnd)), crlf ? "\r\n" : "\n"});
        text.remove_prefix(newline + 1);
    }
    return ini;
}

IniFile::LoadStatus IniFile::Load(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        if (errno != ENOENT) return LoadStatus::UNREADABLE;
        *this = IniFile();
        return LoadStatus::MISSING;
    }
    struct stat info {};
    std::string text;
    const bool read = ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && ReadWholeFile(fd, text);
    ::close(fd);
    if (!read) return LoadStatus::UNREADABLE;
    *this = Parse(text);
    return LoadStatus::LOADED;
}

std::string IniFile::Text() const {
    std::string text = bom_;
    for (const Line& line : lines_) text += line.text + line.ending;
    return text;
}

ReplaceResult IniFile::Save(const std::string& path) const {
    const std::string text = Text();
    return ReplaceFileContents(path, text.data(), text.size());
}

template <class Visit>
int IniFile::FindEntry(std::string_view section, Visit visit) const {
    bool inSection = false;
    for (size_t i = 0; i < lines_.size(); ++i) {
        const ParsedLine line = ParseLine(lines_[i].text);
        if (line.kind == ParsedLine::SECTION)
            inSection = SameName(line.name, section);
        else if (inSection && line.kind == ParsedLine::ENTRY && visit(i, line))
            return int(i);
    }
    return -1;
}

std::optional<std::string> IniFile::Get(std::string_view section, std::string_view key) const {
    std::optional<std::string> found;
    FindEntry(section, [&](size_t, const ParsedLine& line) {
        if (!SameName(line.name, key)) return false;
        found = std::string(line.value);
        return true;
    });
    return found;
}

bool IniFile::Set(std::string_view section, std::string_view key, std::string_view value) {
    if (!ValidSection(section) || !ValidKey(key) || !ValidValue(value)) return false;
    const std::string encoded = EncodeValue(value);
    const int existing = FindEntry(
        section, [&](size_t, const ParsedLine& line) { return SameName(line.name, key); });
    if (existing >= 0) {
        std::string& text = lines_[size_t(existing)].text;
        text = text.substr(0, ParseLine(text).valueStart) + encoded;
        return true;
    }
    const std::string entry = std::string(key) + '=' + encoded;
    const int at = InsertionPoint(section);
    if (at >= 0) {
        InsertLine(size_t(at), entry);
        return true;
    }
    if (!lines_.empty() && ParseLine(lines_.back().text).kind != ParsedLine::BLANK)
        InsertLine(lines_.size(), "");
    InsertLine(lines_.size(), '[' + std::string(section) + ']');
    InsertLine(lines_.size(), entry);
    return true;
}

bool IniFile::RemoveKey(std::string_view section, std::string_view key) {
    bool removed = false;
    for (;;) {
        const int at = FindEntry(
            section, [&](size_t, const ParsedLine& line) { return SameName(line.name, key); });
        if (at < 0) return removed;
        lines_.erase(lines_.begin() + at);
        removed = true;
    }
}

bool IniFile::RemoveSection(std::string_view section) {
    const size_t before = lines_.size();
    bool inSection = false;
    std::erase_if(lines_, [&](const Line& line) {
        const ParsedLine parsed = ParseLine(line.text);
        if (parsed.kind == ParsedLine::SECTION) inSection = SameName(parsed.name, section);
        return inSection;
    });
    return lines_.size() != before;
}

int IniFile::InsertionPoint(std::string_view section) const {
    int at = -1;
    for (size_t i = 0; i < lines_.size(); ++i) {
        const ParsedLine line = ParseLine(lines_[i].text);
        if (line.kind == ParsedLine::SECTION) {
            if (at >= 0) break;  // the end of the section's first block
            if (SameName(line.name, section)) at = int(i) + 1;
        } else if (at >= 0 && (line.kind == ParsedLine::ENTRY || line.kind == ParsedLine::OTHER)) {
            at = int(i) + 1;
        }
    }
    return at;
}

void IniFile::InsertLine(size_t at, std::string text) {
    const std::string ending = NewLineEnding();
    // A last line without an ending gets one when a line goes after it.
    if (at == lines_.size() && at > 0 && lines_.back().ending.empty())
        lines_.back().ending = ending;
    lines_.insert(lines_.begin() + std::ptrdiff_t(at), Line{std::move(text), ending});
}

std::string IniFile::NewLineEnding() const {
    for (const Line& line : lines_)
        if (!line.ending.empty()) return line.ending;
    return "\n";
}

bool IniFile::ValidSection(std::string_view section) {
    return !section.empty() && section.find(']') == std::string_view::npos &&
           section.find_first_of(kLineBreaks) == std::string_view::npos &&
           !HasSurroundingBlanks(section);
}

bool IniFile::ValidKey(std::string_view key) {
    return !key.empty() && key.find('=') == std::string_view::npos &&
           key.find_first_of(kLineBreaks) == std::string_view::npos && !HasSurroundingBlanks(key) &&
           key.front() != '[' && key.front() != ';' && key.front() != '#';
}

bool IniFile::ValidValue(std::string_view value) {
    return value.find_first_of(kLineBreaks) == std::string_view::npos;
}

}  // namespace host
