#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/core/ReplaceFile.h"

namespace host {

// An INI file (UTF-8 text) held as its lines, so that a rewrite keeps everything it did
// not change byte for byte: comments, blank lines, malformed lines, other sections,
// unknown keys, each line's ending (LF or CRLF) and a leading byte order mark.
//
// A line "[name]" starts a section (text after the ']' is ignored); "key=value" is an
// entry of the section above it; lines starting with ';' or '#' are comments; anything
// else (a "[name" with no ']', a line without '=', entries before the first section) is
// kept but never read. Section and key names match without regard to ASCII case, and
// the first entry of a key wins, looking through every section of that name in file
// order. A value is the text after the first '=', trimmed of blanks, with one pair of
// matching quotes ("..." or '...') taken off, so it may hold '=', ';' and backslashes as
// they are. Set writes values that would not read back as they are (surrounding blanks,
// surrounding quotes) in double quotes.
class IniFile {
public:
    enum class LoadStatus { LOADED, MISSING, UNREADABLE };

    IniFile() = default;
    static IniFile Parse(std::string_view text);
    // Replaces the contents with the file's. A missing file leaves an empty INI; an
    // unreadable one (no permission, a folder) leaves the contents as they were.
    LoadStatus Load(const std::string& path);
    // The whole file, as Save writes it.
    std::string Text() const;
    // Writes through a temporary file, so that a failure keeps the previous file.
    ReplaceResult Save(const std::string& path) const;

    std::optional<std::string> Get(std::string_view section, std::string_view key) const;
    // Changes the key's first entry in place, or adds it at the end of the section's
    // first block, or adds the section at the end of the file. False, with nothing
    // changed, for a name or value a line cannot hold (see the Valid functions).
    bool Set(std::string_view section, std::string_view key, std::string_view value);
    // Remove every entry of the key, or the whole of every section of that name (its
    // header, entries, comments and blank lines). False when there was nothing to remove.
    bool RemoveKey(std::string_view section, std::string_view key);
    bool RemoveSection(std::string_view section);

    // A section name: not empty, no ']', no line break or NUL, no surrounding blanks.
    static bool ValidSection(std::string_view section);
    // A key: not empty, no '=', no line break or NUL, no surrounding blanks, and not
    // starting with '[', ';' or '#' (it would read as a header or a comment).
    static bool ValidKey(std::string_view key);
    // A value: no line break or NUL.
    static bool ValidValue(std::string_view value);

private:
    struct Line {
        std::string text;
        std::string ending;  // "\n", "\r\n", or empty for a last line without one
    };

    // Calls visit(index, key, value) for each entry of the section, in file order, until
    // it returns true; returns the index it stopped at, or -1.
    template <class Visit>
    int FindEntry(std::string_view section, Visit visit) const;
    // Where a new key of the section goes: after the last entry or malformed line of the
    // section's first block, or -1 when the file has no such section.
    int InsertionPoint(std::string_view section) const;
    void InsertLine(size_t at, std::string text);
    std::string NewLineEnding() const;

    std::string bom_;
    std::vector<Line> lines_;
};

}  // namespace host
