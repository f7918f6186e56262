#include "host/core/BitArray.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <limits>

#include "host/core/RangeException.h"

namespace host {
namespace {

constexpr const char* kIndexError = "Invalid index passed into a Tarnix SDK BitArray::operator[]";
constexpr size_t kCountBytes = 4;

size_t WordsFor(int bits) {
    return (static_cast<size_t>(bits) + 63) / 64;
}
size_t BytesFor(uint64_t bits) {
    return static_cast<size_t>((bits + 7) / 8);
}

uint8_t ByteOf(const std::vector<uint64_t>& words, size_t byte) {
    return static_cast<uint8_t>(words[byte / 8] >> (8 * (byte % 8)));
}

}  // namespace

BitArray::BitArray(int size) {
    SetSize(size);
}

void BitArray::SetSize(int n, int save) {
    size_ = std::max(n, 0);
    if (save == 0) words_.assign(WordsFor(size_), 0);
    words_.resize(WordsFor(size_), 0);
    ClearPadding();
}

size_t BitArray::CheckedWord(int i) const {
    if (i < 0 || i >= size_) throw RangeException(kIndexError);
    return WordIndex(i);
}

void BitArray::Set(int i) {
    words_[CheckedWord(i)] |= Mask(i);
}

void BitArray::Set(int i, bool value) {
    value ? Set(i) : Clear(i);
}

void BitArray::Clear(int i) {
    words_[CheckedWord(i)] &= ~Mask(i);
}

bool BitArray::operator[](int i) const {
    return (words_[CheckedWord(i)] & Mask(i)) != 0;
}

int BitArray::NumberSet() const {
    int count = 0;
    for (const uint64_t w : words_) count += std::popcount(w);
    return count;
}

bool BitArray::AnyBitSet() const {
    return std::any_of(words_.begin(), words_.end(), [](uint64_t w) { return w != 0; });
}

void BitArray::ClearAll() {
    std::fill(words_.begin(), words_.end(), 0);
}

void BitArray::SetAll() {
    std::fill(words_.begin(), words_.end(), ~uint64_t{0});
    ClearPadding();
}

void BitArray::ClearPadding() {
    const unsigned used = static_cast<unsigned>(size_) % 64;
    if (used != 0 && !words_.empty()) words_.back() &= (uint64_t{1} << used) - 1;
}

template <typename Op>
BitArray& BitArray::Combine(const BitArray& other, Op op) {
    assert(size_ == other.size_ && "BitArray operands differ in size");
    for (size_t w = 0; w < words_.size(); ++w) {
        words_[w] = op(words_[w], w < other.words_.size() ? other.words_[w] : 0);
    }
    ClearPadding();
    return *this;
}

BitArray& BitArray::operator&=(const BitArray& other) {
    return Combine(other, [](uint64_t a, uint64_t b) { return a & b; });
}

BitArray& BitArray::operator|=(const BitArray& other) {
    return Combine(other, [](uint64_t a, uint64_t b) { return a | b; });
}

BitArray& BitArray::operator^=(const BitArray& other) {
    return Combine(other, [](uint64_t a, uint64_t b) { return a ^ b; });
}

BitArray BitArray::operator~() const {
    BitArray result = *this;
    for (uint64_t& w : result.words_) w = ~w;
    result.ClearPadding();
    return result;
}

std::vector<uint8_t> BitArray::Save() const {
    std::vector<uint8_t> out;
    const auto count = static_cast<uint32_t>(size_);
    out.reserve(kCountBytes + BytesFor(count));
    for (size_t k = 0; k < kCountBytes; ++k) out.push_back(static_cast<uint8_t>(count >> (8 * k)));
    for (size_t byte = 0; byte < BytesFor(count); ++byte) out.push_back(ByteOf(words_, byte));
    return out;
}

bool BitArray::Load(const uint8_t* data, size_t size) {
    if (data == nullptr || size < kCountBytes) return false;
    uint32_t count = 0;
    for (size_t k = 0; k < kCountBytes; ++k) count |= uint32_t{data[k]} << (8 * k);
    if (count > static_cast<uint32_t>(std::numeric_limits<int>::max())) return false;
    if (size != kCountBytes + BytesFor(count)) return false;
    const uint8_t* bits = data + kCountBytes;
    const unsigned used = count % 8;
    if (used != 0 && (bits[BytesFor(count) - 1] >> used) != 0) return false;

    std::vector<uint64_t> words(WordsFor(static_cast<int>(count)), 0);
    for (size_t byte = 0; byte < BytesFor(count); ++byte) {
        words[byte / 8] |= uint64_t{bits[byte]} << (8 * (byte % 8));
    }
    words_.swap(words);
    size_ = static_cast<int>(count);
    return true;
}

}  // namespace host
