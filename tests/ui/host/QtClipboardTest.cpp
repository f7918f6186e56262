#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <cstdlib>

#include "host/viewport/PainterGraphicsWindow.h"
#include "ui/host/QtClipboard.h"

namespace host {
namespace {

using Block = Clipboard::Block;

QByteArray OnSystemClipboard(const char* mimeType) {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data ? data->data(mimeType) : QByteArray();
}

// Runs before any QGuiApplication exists (this suite comes first in the file).
TEST(QtClipboardWithoutApplication, CopiesFailAndPastesFindNothing) {
    ASSERT_FALSE(QtClipboard::Available());
    QtClipboard clipboard;
    EXPECT_FALSE(clipboard.CopyBytes(CF_DIB, "abc", 3));
    EXPECT_FALSE(clipboard.IsOpen());
    EXPECT_EQ(clipboard.PasteBytes(CF_DIB), std::nullopt);
}

class QtClipboardOffscreen : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);  // never the desktop's real clipboard
        EnsureGuiApplication();
    }
};

TEST_F(QtClipboardOffscreen, BytesTravelThroughTheSystemClipboard) {
    ASSERT_TRUE(QtClipboard::Available());
    QtClipboard writer, reader;  // two users of the one system clipboard
    const Block bytes = {0, 1, 2, 0, 255, '\r', '\n'};
    ASSERT_TRUE(writer.CopyBytes(CF_DIB, bytes.data(), bytes.size()));
    EXPECT_EQ(OnSystemClipboard("application/x-zorvanta-format-8"),
              QByteArray(reinterpret_cast<const char*>(bytes.data()), int(bytes.size())));
    EXPECT_EQ(reader.PasteBytes(CF_DIB), bytes);
    EXPECT_EQ(reader.PasteBytes(CF_DIB + 1), std::nullopt);

    const Block replaced = {9, 9};
    ASSERT_TRUE(reader.CopyBytes(CF_DIB, replaced.data(), replaced.size()));
    EXPECT_EQ(writer.PasteBytes(CF_DIB), replaced);
    ASSERT_TRUE(writer.CopyBytes(CF_DIB, nullptr, 0));  // an empty block is still data
    EXPECT_EQ(reader.PasteBytes(CF_DIB), Block());

    // Another program's text replaces the content: nothing of ours to paste.
    QGuiApplication::clipboard()->setText("plain text");
    EXPECT_EQ(writer.PasteBytes(CF_DIB), std::nullopt);
    EXPECT_FALSE(writer.IsFormatAvailable(CF_DIB));

    // Another Zorvanta process's copy arrives as the same MIME type.
    auto* foreign = new QMimeData;
    foreign->setData("application/x-zorvanta-format-8", QByteArray("pose", 4));
    QGuiApplication::clipboard()->setMimeData(foreign);
    EXPECT_EQ(reader.PasteBytes(CF_DIB), (Block{'p', 'o', 's', 'e'}));
}

}  // namespace
}  // namespace host
