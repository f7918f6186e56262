#pragma once

#include <QString>

#include "host/object/Clipboard.h"

namespace host {

// The system clipboard, through Qt: each format's block travels as the bytes of a private
// MIME type, "application/x-zorvanta-format-" and the format number, so that another
// Zorvanta process on the same display can paste it and other programs leave it alone.
// Needs the process's QGuiApplication; without one, copies fail and pastes find nothing.
class QtClipboard : public Clipboard {
public:
    static constexpr const char* kMimeTypePrefix = "application/x-zorvanta-format-";

    // Whether there is a system clipboard to reach: a QGuiApplication exists.
    static bool Available();
    static QString MimeType(ClipboardFormat format);

protected:
    bool Publish(Content content) override;
    std::optional<Block> Read(ClipboardFormat format) const override;
};

}  // namespace host
