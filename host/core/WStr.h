#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace host {

// The host's wide string. Positions and lengths are ints; the text may hold any wide character,
// including embedded L'\0' after Resize().
class WStr {
public:
    WStr() = default;
    // Implicit, so that literals and std::wstring work wherever a WStr is expected.
    // A null pointer gives an empty string.
    WStr(const wchar_t* text);
    WStr(std::wstring text);

    // Decodes UTF-8 leniently (malformed bytes become U+FFFD).
    static WStr FromUtf8(std::string_view utf8);
    std::string ToUtf8() const;

    int Length() const { return static_cast<int>(text_.size()); }
    bool isNull() const { return text_.empty(); }
    // Never null and always null-terminated.
    const wchar_t* data() const { return text_.c_str(); }
    const std::wstring& str() const { return text_; }

    // Throws RangeException for an index outside 0..Length()-1.
    wchar_t& operator[](int i);
    wchar_t operator[](int i) const;

    // Up to n characters from `start`. `start` is clamped to 0..Length(); n < 0 or past the end
    // means "to the end". Never throws.
    WStr Substr(int start, int n = -1) const;
    // Removes the characters Substr(at, n) would return.
    WStr& remove(int at, int n = -1);

    // Replaces the contents with the formatted text and returns its length, or -1 (leaving the
    // string empty) if it cannot be formatted. The format is vswprintf's: with glibc, %ls takes
    // a wide string (const wchar_t*) and %s a narrow one (const char*).
    int printf(const wchar_t* format, ...);

    // Case mapping with towlower/towupper, so it follows the current locale (ASCII only in the
    // default "C" locale).
    WStr& toLower();
    WStr& toUpper();

    // Index of the first or last occurrence of c, or -1.
    int first(wchar_t c) const;
    int last(wchar_t c) const;

    // Truncates, or pads with L'\0', so that Length() == n.
    void Resize(int n);

    WStr& operator+=(const WStr& other);
    WStr& operator+=(const wchar_t* other);
    WStr& operator+=(wchar_t c);

    friend WStr operator+(WStr a, const WStr& b) { return a += b; }
    friend WStr operator+(WStr a, const wchar_t* b) { return a += b; }
    friend WStr operator+(WStr a, wchar_t c) { return a += c; }

    friend bool operator==(const WStr&, const WStr&) = default;
    friend std::strong_ordering operator<=>(const WStr&, const WStr&) = default;

private:
    std::wstring text_;
};

}  // namespace host

template <>
struct std::hash<host::WStr> {
    size_t operator()(const host::WStr& s) const noexcept {
        return std::hash<std::wstring>{}(s.str());
    }
};
