#pragma once

#include "host/object/Clipboard.h"

namespace host {

// A clipboard that lives in this process: what the host uses when there is no display,
// and what tests use. Its content lasts as long as the object.
class InProcessClipboard : public Clipboard {
protected:
    bool Publish(Content content) override;
    std::optional<Block> Read(ClipboardFormat format) const override;

private:
    Content content_;
};

}  // namespace host
