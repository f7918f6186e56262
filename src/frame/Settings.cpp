#include "frame/Settings.h"

#include <cwchar>

#include "host/script/ExecuteScript.h"

namespace zorvanta {

using host::WStr;

namespace {

// The script's text up to the key and its closing quote.
WStr KeyText(const wchar_t* verb, const wchar_t* key) {
    WStr text;
    text.printf(L"%ls (getTarnixIniFile()) \"Zorvanta\" \"%ls\"", verb, key);
    return text;
}

bool Run(const WStr& text, host::FPValue& result) {
    return host::ExecuteTarnixScriptScript(text.data(), true, &result, false);
}

// A write that ran and did not answer false.
bool Write(const WStr& text) {
    host::FPValue result;
    if (!Run(text, result)) return false;
    const int* answer = result.type == host::TYPE_BOOL ? result.Get<int>() : nullptr;
    return !answer || *answer != 0;
}

}  // namespace

bool GetStringSetting(const wchar_t* key, WStr& value) {
    host::FPValue result;
    if (!Run(KeyText(L"GetINISetting", key), result)) return false;
    const WStr* text = result.Get<WStr>();
    if (!text || text->Length() == 0) return false;
    value = *text;
    return true;
}

bool GetIntSetting(const wchar_t* key, int& value) {
    WStr text;
    if (!GetStringSetting(key, text)) return false;
    value = int(std::wcstol(text.data(), nullptr, 10));
    return true;
}

bool SetIntSetting(const wchar_t* key, int value) {
    WStr text;
    text.printf(L"%ls \"%d\"", KeyText(L"SetINISetting", key).data(), value);
    return Write(text);
}

bool SetStringSetting(const wchar_t* key, const wchar_t* value) {
    WStr text;
    text.printf(L"%ls @\"%ls\"", KeyText(L"SetINISetting", key).data(), value);
    return Write(text);
}

}  // namespace zorvanta
