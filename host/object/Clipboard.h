#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "host/object/ServiceConstants.h"

namespace host {

// The host's clipboard: blocks of bytes, each under a format number, replaced as a whole.
// Writers follow the platform's sequence: Open, Empty (which starts a new content), Put a
// block a format, Close (which publishes the new content); readers Open, Get a copy of a
// block, Close. One caller holds it open at a time. CopyBytes and PasteBytes run these
// sequences with their failure handling, and are what the toolkit calls.
//
// Implementations say where the content lives (this process, the system's clipboard);
// the sequence and its checks are the same for all of them.
class Clipboard {
public:
    using Block = std::vector<uint8_t>;

    Clipboard() = default;
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    virtual ~Clipboard() = default;

    // False when someone holds it open already.
    bool Open();
    // Starts a new, empty content; the previous one stays readable by others until Close
    // publishes the new one. False when not open.
    bool Empty();
    // Puts block under format in the new content, replacing one put there before. False,
    // with the block freed, when the clipboard is not open or was not emptied since.
    bool Put(ClipboardFormat format, Block block);
    // A copy of the block under format (of the new content, once emptied), or nothing when
    // the clipboard is not open or holds no such block. Its size is the block's.
    std::optional<Block> Get(ClipboardFormat format) const;
    // Releases the clipboard, publishing the new content if one was started. False when
    // publishing failed (the previous content stays) or the clipboard was not open.
    bool Close();
    bool IsOpen() const { return open_; }
    // Whether the published content holds a block under format; needs no Open.
    bool IsFormatAvailable(ClipboardFormat format) const { return Read(format).has_value(); }

    // Makes the size bytes at data the clipboard's only content, under format. On a failure
    // at any step the copy is freed, the clipboard closed, and the result false.
    bool CopyBytes(ClipboardFormat format, const void* data, size_t size);
    // The bytes under format, or nothing when there are none (or the clipboard is held).
    // The clipboard is open only while the bytes are copied.
    std::optional<Block> PasteBytes(ClipboardFormat format);

protected:
    using Content = std::map<ClipboardFormat, Block>;

    // Replaces the published content with content; false when that is refused.
    virtual bool Publish(Content content) = 0;
    // A copy of the published content's block under format.
    virtual std::optional<Block> Read(ClipboardFormat format) const = 0;

private:
    bool open_ = false;
    std::optional<Content> started_;  // the new content, from Empty to Close
};

}  // namespace host
