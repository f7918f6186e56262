#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

// Conversion between UTF-8 and wide strings (UTF-32 on Linux). Surrogate code points
// D800..DFFF are encoded and decoded as ordinary three-byte sequences, so that
// wide -> UTF-8 -> wide is the identity for every value 0..0x10FFFF.

// Encodes text; a wide character above 0x10FFFF or negative becomes U+FFFD.
std::string Utf8FromWide(std::wstring_view text);

// Decodes text leniently: each maximal ill-formed subpart becomes one U+FFFD and decoding
// resumes after it. A truncated sequence is one subpart; a byte that can never start or
// continue a sequence (a stray continuation byte, C0, C1, F5 to FF) is one by itself, so an
// overlong form or a value above 0x10FFFF gives one U+FFFD per byte.
std::wstring WideFromUtf8(std::string_view text);

// Decodes text, or returns nullopt if any part of it is malformed.
std::optional<std::wstring> Utf8ToWideStrict(std::string_view text);

}  // namespace host
