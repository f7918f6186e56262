#include "host/object/QuietDialogService.h"

#include <iostream>

namespace host {

QuietDialogService::QuietDialogService() : out_(&std::cerr) {}

int QuietDialogService::MessageBox(const WStr& text, const WStr& title, unsigned flags) {
    const int answer = DefaultAnswer(flags);
    WStr line = text;
    // A question's answer is worth telling; a plain message's OK is not.
    if (Buttons(flags).size() > 1) line += WStr(L" [") + ButtonName(answer) + L"]";
    WriteLine(title, line);
    return answer;
}

std::optional<WStr> QuietDialogService::AskFileName(FileDialogRequest& request) {
    WriteLine(request.title, L"no file chosen in quiet mode");
    return std::nullopt;
}

void QuietDialogService::WriteLine(const WStr& title, const WStr& text) {
    if (!title.isNull()) *out_ << title.ToUtf8() << ": ";
    *out_ << text.ToUtf8() << '\n' << std::flush;
}

}  // namespace host
