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

// Decodes text leniently: each maximal ill-formed subpart (bad lead byte, truncated sequence,
// overlong form, value above 0x10FFFF, stray continuation byte) becomes one U+FFFD and decoding
// resumes at the next byte.
std::wstring WideFromUtf8(std::string_view text);

// Decodes text, or returns nullopt if any part of it is malformed.
std::optional<std::wstring> Utf8ToWideStrict(std::string_view text);

}  // namespace host
