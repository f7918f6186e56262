#include "host/object/DialogService.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

// The buttons of each set, indexed by the flags' low four bits.
const std::array<std::vector<int>, 6> kButtonSets = {{
    {IDOK},                        // MB_OK
    {IDOK, IDCANCEL},              // MB_OKCANCEL
    {IDABORT, IDRETRY, IDIGNORE},  // MB_ABORTRETRYIGNORE
    {IDYES, IDNO, IDCANCEL},       // MB_YESNOCANCEL
    {IDYES, IDNO},                 // MB_YESNO
    {IDRETRY, IDCANCEL},           // MB_RETRYCANCEL
}};

struct NamedButton {
    int id;
    const wchar_t* name;
};

constexpr NamedButton kButtonNames[] = {
    {IDOK, L"OK"},         {IDCANCEL, L"Cancel"}, {IDABORT, L"Abort"}, {IDRETRY, L"Retry"},
    {IDIGNORE, L"Ignore"}, {IDYES, L"Yes"},       {IDNO, L"No"},
};

int ClampFilterIndex(int index, size_t filterCount) {
    return std::clamp(index, 1, std::max(1, int(filterCount)));
}

// Whether the last part of path names an extension.
bool HasExtension(const std::wstring& path) {
    const size_t slash = path.find_last_of(L'/');
    const size_t dot = path.find_last_of(L'.');
    return dot != std::wstring::npos && (slash == std::wstring::npos || dot > slash + 1);
}

}  // namespace

std::optional<WStr> DialogService::GetFileName(FileDialogRequest& request) {
    request.filterIndex = ClampFilterIndex(request.filterIndex, request.filters.size());
    std::optional<WStr> name = AskFileName(request);
    if (!name || name->isNull()) return std::nullopt;
    request.filterIndex = ClampFilterIndex(request.filterIndex, request.filters.size());
    if (!request.defaultExt.isNull() && !HasExtension(name->str()))
        *name += L"." + request.defaultExt.str();
    return name;
}

std::vector<int> DialogService::Buttons(unsigned flags) {
    const unsigned set = flags & MB_TYPEMASK;
    return set < kButtonSets.size() ? kButtonSets[set] : kButtonSets[MB_OK];
}

int DialogService::DefaultAnswer(unsigned flags) {
    const std::vector<int> buttons = Buttons(flags);
    const size_t which = (flags & MB_DEFMASK) / MB_DEFBUTTON2;
    return which < buttons.size() ? buttons[which] : buttons.front();
}

const wchar_t* DialogService::ButtonName(int id) {
    for (const NamedButton& button : kButtonNames)
        if (button.id == id) return button.name;
    return L"";
}

}  // namespace host
