#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "host/object/InProcessClipboard.h"
#include "host/object/Interface.h"

namespace host {
namespace {

using Block = Clipboard::Block;

// An in-process clipboard that the system refuses to publish to while refuse is set.
class RefusingClipboard : public InProcessClipboard {
public:
    bool refuse = false;

protected:
    bool Publish(Content content) override {
        return !refuse && InProcessClipboard::Publish(std::move(content));
    }
};

Block Bytes(std::initializer_list<uint8_t> bytes) {
    return Block(bytes);
}

TEST(Clipboard, CopiedBytesPasteBackExactly) {
    InProcessClipboard clipboard;
    EXPECT_EQ(clipboard.PasteBytes(CF_DIB), std::nullopt);  // nothing there yet: no data
    Block large(1 << 20);
    for (size_t i = 0; i < large.size(); ++i) large[i] = uint8_t(i * 7 + (i >> 11));
    const std::vector<Block> contents = {Bytes({0, 1, 0, 255, 10, 13}), Block(), large,
                                         Bytes({42})};
    for (const Block& bytes : contents) {
        ASSERT_TRUE(clipboard.CopyBytes(CF_DIB, bytes.data(), bytes.size()));
        EXPECT_FALSE(clipboard.IsOpen());
        EXPECT_EQ(clipboard.PasteBytes(CF_DIB), bytes);  // the size is the block's
        EXPECT_FALSE(clipboard.IsOpen());
    }
    EXPECT_EQ(clipboard.PasteBytes(CF_DIB + 1), std::nullopt);
    // A copy replaces every format, not only its own.
    ASSERT_TRUE(clipboard.Open() && clipboard.Empty() && clipboard.Put(3, Bytes({3})) &&
                clipboard.Put(CF_DIB, Bytes({8})) && clipboard.Close());
    ASSERT_TRUE(clipboard.CopyBytes(CF_DIB, "x", 1));
    EXPECT_FALSE(clipboard.IsFormatAvailable(3));
}

TEST(Clipboard, TheSequenceIsEnforced) {
    InProcessClipboard clipboard;
    ASSERT_TRUE(clipboard.CopyBytes(CF_DIB, "old", 3));
    EXPECT_FALSE(clipboard.Put(CF_DIB, Bytes({1})));  // not open
    EXPECT_FALSE(clipboard.Empty());
    EXPECT_FALSE(clipboard.Close());
    EXPECT_EQ(clipboard.Get(CF_DIB), std::nullopt);

    ASSERT_TRUE(clipboard.Open());
    EXPECT_FALSE(clipboard.Open());  // one holder at a time
    EXPECT_FALSE(clipboard.CopyBytes(CF_DIB, "new", 3));
    EXPECT_EQ(clipboard.PasteBytes(CF_DIB), std::nullopt);
    EXPECT_EQ(clipboard.Get(CF_DIB), Block({'o', 'l', 'd'}));
    EXPECT_FALSE(clipboard.Put(CF_DIB, Bytes({1})));  // not emptied yet
    ASSERT_TRUE(clipboard.Empty());
    EXPECT_EQ(clipboard.Get(CF_DIB), std::nullopt);    // the holder sees its new content
    EXPECT_TRUE(clipboard.IsFormatAvailable(CF_DIB));  // others still see the old one
    ASSERT_TRUE(clipboard.Put(CF_DIB, Bytes({1})));
    ASSERT_TRUE(clipboard.Put(CF_DIB, Bytes({2, 2})));
    EXPECT_EQ(clipboard.Get(CF_DIB), Bytes({2, 2}));
    ASSERT_TRUE(clipboard.Close());
    EXPECT_EQ(clipboard.PasteBytes(CF_DIB), Bytes({2, 2}));

    // Emptying and closing leaves nothing; closing without emptying changes nothing.
    ASSERT_TRUE(clipboard.Open() && clipboard.Close());
    EXPECT_TRUE(clipboard.IsFormatAvailable(CF_DIB));
    ASSERT_TRUE(clipboard.Open() && clipboard.Empty() && clipboard.Close());
    EXPECT_EQ(clipboard.PasteBytes(CF_DIB), std::nullopt);
}

TEST(Clipboard, ARefusedCopyKeepsTheOldContentAndReleasesTheClipboard) {
    RefusingClipboard clipboard;
    ASSERT_TRUE(clipboard.CopyBytes(CF_DIB, "old", 3));
    clipboard.refuse = true;
    EXPECT_FALSE(clipboard.CopyBytes(CF_DIB, "new", 3));
    EXPECT_FALSE(clipboard.IsOpen());
    clipboard.refuse = false;
    EXPECT_EQ(clipboard.PasteBytes(CF_DIB), Block({'o', 'l', 'd'}));
}

TEST(Clipboard, TheInterfaceGivesTheInstalledClipboardOrItsOwn) {
    Interface* ip = GetCOREInterface();
    Clipboard& own = ip->GetClipboard();
    ASSERT_TRUE(own.CopyBytes(CF_DIB, "own", 3));
    InProcessClipboard installed;
    ip->SetClipboard(&installed);
    EXPECT_EQ(&ip->GetClipboard(), &installed);
    EXPECT_EQ(ip->GetClipboard().PasteBytes(CF_DIB), std::nullopt);
    ip->SetClipboard(nullptr);
    EXPECT_EQ(&ip->GetClipboard(), &own);
    EXPECT_EQ(ip->GetClipboard().PasteBytes(CF_DIB), Block({'o', 'w', 'n'}));
    ASSERT_TRUE(own.Open() && own.Empty() && own.Close());
}

}  // namespace
}  // namespace host
