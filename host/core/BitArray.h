#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

// Resizable array of bits. Bits past the size are always zero, so counting and comparing can
// work a word at a time.
class BitArray {
public:
    BitArray() = default;
    explicit BitArray(int size);

    // Resizes to n bits. With save != 0 the bits that still fit are kept; otherwise all clear.
    void SetSize(int n, int save = 0);
    int GetSize() const { return size_; }

    // Set, Clear and operator[] throw RangeException for an index outside 0..GetSize()-1.
    void Set(int i);
    void Set(int i, bool value);
    void Clear(int i);
    bool operator[](int i) const;

    int NumberSet() const;
    bool IsEmpty() const { return !AnyBitSet(); }
    bool AnyBitSet() const;
    void ClearAll();
    void SetAll();

    // The operands must have the same size (asserted). Should that fail in a release build,
    // the shorter operand acts as if padded with zeros and the size of *this is kept.
    BitArray& operator&=(const BitArray& other);
    BitArray& operator|=(const BitArray& other);
    BitArray& operator^=(const BitArray& other);
    // Complement of the bits below the size.
    BitArray operator~() const;

    friend bool operator==(const BitArray&, const BitArray&) = default;

    // Serialised form: bit count as little-endian uint32, then the bits 8 per byte, bit i in
    // byte i / 8 at position i % 8, unused high bits of the last byte zero.
    std::vector<uint8_t> Save() const;
    // Reads the form written by Save(). Returns false, leaving the array unchanged, if the data
    // is not exactly that form.
    bool Load(const uint8_t* data, size_t size);

private:
    static size_t WordIndex(int i) { return static_cast<size_t>(i) / 64; }
    static uint64_t Mask(int i) { return uint64_t{1} << (static_cast<unsigned>(i) % 64); }
    size_t CheckedWord(int i) const;
    void ClearPadding();
    template <typename Op>
    BitArray& Combine(const BitArray& other, Op op);

    std::vector<uint64_t> words_;
    int size_ = 0;
};

}  // namespace host
