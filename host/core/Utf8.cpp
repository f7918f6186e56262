#include "host/core/Utf8.h"

#include <cstdint>

namespace host {
namespace {

static_assert(sizeof(wchar_t) == 4, "wide strings are expected to hold UTF-32");

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kMaxCodePoint = 0x10FFFF;

// How a sequence starting with a given lead byte continues: its total length, the allowed range
// of the second byte (narrower than 80..BF where that rules out overlong forms and values above
// 0x10FFFF), and the payload bits of the lead byte.
struct LeadByte {
    int length = 0;  // 0: not a valid lead byte
    uint8_t secondLow = 0x80;
    uint8_t secondHigh = 0xBF;
    char32_t bits = 0;
};

LeadByte ClassifyLead(uint8_t b) {
    if (b < 0x80) return {1, 0x80, 0xBF, b};
    if (b < 0xC2) return {};  // continuation byte, or lead of an overlong 2-byte form
    if (b < 0xE0) return {2, 0x80, 0xBF, char32_t{b} & 0x1Fu};
    if (b < 0xF0) return {3, b == 0xE0 ? uint8_t{0xA0} : uint8_t{0x80}, 0xBF, char32_t{b} & 0x0Fu};
    if (b < 0xF5) {
        const uint8_t low = b == 0xF0 ? 0x90 : 0x80;
        const uint8_t high = b == 0xF4 ? 0x8F : 0xBF;
        return {4, low, high, char32_t{b} & 0x07u};
    }
    return {};
}

struct Decoded {
    char32_t value = kReplacement;
    size_t consumed = 1;
    bool valid = false;
};

// Decodes the sequence at text[pos]. On malformed input `consumed` covers the maximal ill-formed
// subpart: the lead byte plus every continuation byte that was acceptable so far.
Decoded DecodeOne(std::string_view text, size_t pos) {
    const LeadByte lead = ClassifyLead(static_cast<uint8_t>(text[pos]));
    if (lead.length == 0) return {};
    Decoded out{lead.bits, 1, false};
    for (int k = 1; k < lead.length; ++k) {
        if (pos + out.consumed >= text.size()) return {kReplacement, out.consumed, false};
        const auto b = static_cast<uint8_t>(text[pos + out.consumed]);
        const uint8_t low = k == 1 ? lead.secondLow : 0x80;
        const uint8_t high = k == 1 ? lead.secondHigh : 0xBF;
        if (b < low || b > high) return {kReplacement, out.consumed, false};
        out.value = (out.value << 6) | (b & 0x3Fu);
        ++out.consumed;
    }
    out.valid = true;
    return out;
}

void AppendUtf8(std::string& out, char32_t cp) {
    auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (cp < 0x80) {
        put(cp);
    } else if (cp < 0x800) {
        put(0xC0 | (cp >> 6));
        put(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        put(0xE0 | (cp >> 12));
        put(0x80 | ((cp >> 6) & 0x3F));
        put(0x80 | (cp & 0x3F));
    } else {
        put(0xF0 | (cp >> 18));
        put(0x80 | ((cp >> 12) & 0x3F));
        put(0x80 | ((cp >> 6) & 0x3F));
        put(0x80 | (cp & 0x3F));
    }
}

}  // namespace

std::string Utf8FromWide(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (const wchar_t wc : text) {
        // A negative wchar_t converts to a value far above the last code point.
        const auto cp = static_cast<char32_t>(wc);
        AppendUtf8(out, cp <= kMaxCodePoint ? cp : kReplacement);
    }
    return out;
}

std::wstring WideFromUtf8(std::string_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (size_t pos = 0; pos < text.size();) {
        const Decoded d = DecodeOne(text, pos);
        out.push_back(static_cast<wchar_t>(d.value));
        pos += d.consumed;
    }
    return out;
}

std::optional<std::wstring> Utf8ToWideStrict(std::string_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (size_t pos = 0; pos < text.size();) {
        const Decoded d = DecodeOne(text, pos);
        if (!d.valid) return std::nullopt;
        out.push_back(static_cast<wchar_t>(d.value));
        pos += d.consumed;
    }
    return out;
}

}  // namespace host
