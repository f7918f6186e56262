#include "host/object/InProcessClipboard.h"

namespace host {

bool InProcessClipboard::Publish(Content content) {
    content_ = std::move(content);
    return true;
}

std::optional<Clipboard::Block> InProcessClipboard::Read(ClipboardFormat format) const {
    const auto found = content_.find(format);
    if (found == content_.end()) return std::nullopt;
    return found->second;
}

}  // namespace host
