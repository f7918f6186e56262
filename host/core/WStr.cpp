#include "host/core/WStr.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cwchar>
#include <cwctype>
#include <utility>
#include <vector>

#include "host/core/RangeException.h"
#include "host/core/Utf8.h"

namespace host {
namespace {

constexpr const char* kIndexError = "Invalid index passed into WStr::operator[]";

// Longest result printf tries before giving up: a bound on growth should anything other
// than a short buffer make vswprintf fail without saying so in errno.
constexpr size_t kMaxFormatted = size_t{1} << 22;

// Clamps (start, n) to a range [first, first + count) within a string of the given length.
std::pair<size_t, size_t> ClampRange(int start, int n, size_t length) {
    const size_t first = std::min(static_cast<size_t>(std::max(start, 0)), length);
    const size_t available = length - first;
    const size_t count = n < 0 ? available : std::min(static_cast<size_t>(n), available);
    return {first, count};
}

size_t CheckedIndex(int i, size_t length) {
    if (i < 0 || static_cast<size_t>(i) >= length) throw RangeException(kIndexError);
    return static_cast<size_t>(i);
}

int ToIndex(size_t pos) {
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

}  // namespace

WStr::WStr(const wchar_t* text) : text_(text != nullptr ? text : L"") {}

WStr::WStr(std::wstring text) : text_(std::move(text)) {}

WStr WStr::FromUtf8(std::string_view utf8) {
    return WStr(WideFromUtf8(utf8));
}

std::string WStr::ToUtf8() const {
    return Utf8FromWide(text_);
}

wchar_t& WStr::operator[](int i) {
    return text_[CheckedIndex(i, text_.size())];
}

wchar_t WStr::operator[](int i) const {
    return text_[CheckedIndex(i, text_.size())];
}

WStr WStr::Substr(int start, int n) const {
    const auto [first, count] = ClampRange(start, n, text_.size());
    return WStr(text_.substr(first, count));
}

WStr& WStr::remove(int at, int n) {
    const auto [first, count] = ClampRange(at, n, text_.size());
    text_.erase(first, count);
    return *this;
}

int WStr::printf(const wchar_t* format, ...) {
    text_.clear();
    if (format == nullptr) return -1;
    std::vector<wchar_t> buffer(256);
    for (;;) {
        va_list args;
        va_start(args, format);
        errno = 0;
        const int written = std::vswprintf(buffer.data(), buffer.size(), format, args);
        va_end(args);
        if (written >= 0) {
            text_.assign(buffer.data(), static_cast<size_t>(written));
            return written;
        }
        // glibc returns -1 both for a short buffer and for an argument it cannot convert;
        // only the latter sets errno (EILSEQ), and no buffer size would help it.
        if (errno != 0 || buffer.size() >= kMaxFormatted) return -1;
        buffer.resize(buffer.size() * 2);
    }
}

WStr& WStr::toLower() {
    for (wchar_t& c : text_) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
    return *this;
}

WStr& WStr::toUpper() {
    for (wchar_t& c : text_) c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    return *this;
}

int WStr::first(wchar_t c) const {
    return ToIndex(text_.find(c));
}

int WStr::last(wchar_t c) const {
    return ToIndex(text_.rfind(c));
}

void WStr::Resize(int n) {
    text_.resize(static_cast<size_t>(std::max(n, 0)), L'\0');
}

WStr& WStr::operator+=(const WStr& other) {
    text_ += other.text_;
    return *this;
}

WStr& WStr::operator+=(const wchar_t* other) {
    if (other != nullptr) text_ += other;
    return *this;
}

WStr& WStr::operator+=(wchar_t c) {
    text_ += c;
    return *this;
}

}  // namespace host
