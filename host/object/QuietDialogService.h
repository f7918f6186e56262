#pragma once

#include <iosfwd>

#include "host/object/DialogService.h"

namespace host {

// Dialogs with nobody to answer them (the command line, quiet mode): a file dialog is
// cancelled, a message box takes its default button, a beep is silent. Each dialog
// leaves one line of UTF-8 on the stream given (standard error unless told), so what
// would have been shown is not lost.
class QuietDialogService : public DialogService {
public:
    QuietDialogService();
    explicit QuietDialogService(std::ostream& out) : out_(&out) {}

    int MessageBox(const WStr& text, const WStr& title, unsigned flags = MB_OK) override;
    void MessageBeep(unsigned) override {}

protected:
    std::optional<WStr> AskFileName(FileDialogRequest& request) override;

private:
    void WriteLine(const WStr& title, const WStr& text);

    std::ostream* out_;
};

}  // namespace host
