#include "host/object/Clipboard.h"

#include <new>

namespace host {

bool Clipboard::Open() {
    if (open_) return false;
    open_ = true;
    started_.reset();
    return true;
}

bool Clipboard::Empty() {
    if (!open_) return false;
    started_.emplace();
    return true;
}

bool Clipboard::Put(ClipboardFormat format, Block block) {
    if (!open_ || !started_) return false;
    (*started_)[format] = std::move(block);
    return true;
}

std::optional<Clipboard::Block> Clipboard::Get(ClipboardFormat format) const {
    if (!open_) return std::nullopt;
    if (!started_) return Read(format);
    const auto found = started_->find(format);
    if (found == started_->end()) return std::nullopt;
    return found->second;
}

bool Clipboard::Close() {
    if (!open_) return false;
    open_ = false;
    std::optional<Content> content = std::move(started_);
    started_.reset();
    return !content || Publish(std::move(*content));
}

bool Clipboard::CopyBytes(ClipboardFormat format, const void* data, size_t size) {
    if (!Open()) return false;
    try {
        const auto* bytes = static_cast<const uint8_t*>(data);
        if (Empty() && Put(format, Block(bytes, bytes + size))) return Close();
    } catch (const std::bad_alloc&) {
        // The copy could not be made: nothing was put.
    }
    started_.reset();
    Close();
    return false;
}

std::optional<Clipboard::Block> Clipboard::PasteBytes(ClipboardFormat format) {
    if (!Open()) return std::nullopt;
    std::optional<Block> block = Get(format);
    Close();
    return block;
}

}  // namespace host
