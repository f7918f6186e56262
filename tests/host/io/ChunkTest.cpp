#include <gtest/gtest.h>

#include <cstring>

#include "host/io/ChunkReader.h"
#include "host/io/ChunkWriter.h"

namespace host {
namespace {

// A container 0x10 with a float 0x1, a nested container 0x20 (a string and a count of
// two ints), then a chunk 0x30 that an old reader does not know.
std::vector<uint8_t> Sample() {
    ChunkWriter w;
    w.BeginChunk(0x10);
    w.WriteChunk<float>(0x1, 2.5f);
    w.BeginChunk(0x20);
    w.WriteWString(L"Bip\u00e9d \U0001F600");
    w.WriteValue<uint32_t>(2);
    w.WriteValue<int32_t>(-7);
    w.WriteValue<int32_t>(9);
    w.EndChunk();
    w.WriteChunk<double>(0x30, 1.0);
    w.EndChunk();
    EXPECT_TRUE(w.Balanced());
    return w.Bytes();
}

// Reads Sample as a reader that knows 0x1 and 0x20 and skips the rest.
bool ReadSample(ChunkReader& r, float& f, WStr& name, std::vector<int32_t>& ints) {
    if (r.OpenChunk() != IO_OK || r.CurChunkID() != 0x10) return false;
    IOResult res;
    while ((res = r.OpenChunk()) == IO_OK) {
        if (r.CurChunkID() == 0x1 && r.ReadValue(f) != IO_OK) return false;
        if (r.CurChunkID() == 0x20) {
            uint32_t n = 0;
            if (r.ReadWString(name) != IO_OK || r.ReadCount(n, sizeof(int32_t)) != IO_OK)
                return false;
            ints.resize(n);
            for (int32_t& i : ints)
                if (r.ReadValue(i) != IO_OK) return false;
        }
        if (r.CloseChunk() != IO_OK) return false;
    }
    return res == IO_END && r.CloseChunk() == IO_OK && r.OpenChunk() == IO_END;
}

TEST(Chunks, NestedChunksReadBackAndUnknownOnesAreSkipped) {
    const std::vector<uint8_t> bytes = Sample();
    ChunkReader r(bytes);
    float f = 0;
    WStr name;
    std::vector<int32_t> ints;
    ASSERT_TRUE(ReadSample(r, f, name, ints)) << r.Error();
    EXPECT_EQ(f, 2.5f);
    EXPECT_EQ(name, WStr(L"Bip\u00e9d \U0001F600"));
    EXPECT_EQ(ints, (std::vector<int32_t>{-7, 9}));
    EXPECT_FALSE(r.Failed());
}

// Every prefix of the file fails with a message; every single-byte change reads to a
// failure or a result, never past the bytes (the sanitizers watch the reads) and never
// sizing a table from a count its chunk cannot hold.
TEST(Chunks, TruncatedAndCorruptedBytesFailCleanly) {
    const std::vector<uint8_t> bytes = Sample();
    for (size_t n = 0; n < bytes.size(); ++n) {
        const std::vector<uint8_t> cut(bytes.begin(), bytes.begin() + long(n));
        ChunkReader r(cut);
        float f = 0;
        WStr name;
        std::vector<int32_t> ints;
        EXPECT_FALSE(ReadSample(r, f, name, ints)) << n;
        EXPECT_EQ(r.Failed(), n > 0) << n;
    }
    for (size_t at = 0; at < bytes.size(); ++at)
        for (uint8_t value : {uint8_t(0x00), uint8_t(0xff), uint8_t(0x80)}) {
            std::vector<uint8_t> bad = bytes;
            bad[at] = value;
            ChunkReader r(bad);
            float f = 0;
            WStr name;
            std::vector<int32_t> ints;
            ReadSample(r, f, name, ints);
            EXPECT_LE(ints.size(), 2u) << at;
        }
}

TEST(Chunks, ErrorsNameWhatIsWrongAndStopFurtherReads) {
    ChunkWriter w;
    w.BeginChunk(0x42);
    w.WriteValue<uint32_t>(1000000);  // a count the chunk cannot hold
    w.EndChunk();
    ChunkReader r(w.Bytes());
    ASSERT_EQ(r.OpenChunk(), IO_OK);
    uint32_t n = 0;
    EXPECT_EQ(r.ReadCount(n, 4), IO_ERROR);
    EXPECT_NE(r.Error().find("count of 1000000"), std::string::npos) << r.Error();
    int32_t value = 0;
    size_t read = 7;
    EXPECT_EQ(r.Read(&value, sizeof(value), &read), IO_ERROR);
    EXPECT_EQ(read, 0u);

    std::vector<uint8_t> bytes = w.Bytes();
    const uint64_t tooLong = 1u << 30;
    std::memcpy(bytes.data() + 2, &tooLong, sizeof(tooLong));
    ChunkReader lying(bytes);
    EXPECT_EQ(lying.OpenChunk(), IO_ERROR);
    EXPECT_NE(lying.Error().find("chunk 0x0042 claims 1073741824 bytes"), std::string::npos)
        << lying.Error();

    ChunkWriter s;
    s.BeginChunk(1);
    s.WriteValue<uint32_t>(2);
    s.WriteValue<uint16_t>(0xFFFF);  // not UTF-8
    s.EndChunk();
    ChunkReader strings(s.Bytes());
    WStr text = L"kept";
    ASSERT_EQ(strings.OpenChunk(), IO_OK);
    EXPECT_EQ(strings.ReadWString(text), IO_ERROR);
    EXPECT_EQ(text, WStr(L"kept"));
}

}  // namespace
}  // namespace host
