#pragma once

#include "host/core/WStr.h"

// The toolkit's settings: keys and values in the section "Zorvanta" of the host's
// settings file, read and written through the host's script language, as every setting
// of the toolkit is. A script that fails reads as a key that is not there.
namespace zorvanta {

// The key's value, parsed as a decimal number; false, with value left, when the key has
// no value.
bool GetIntSetting(const wchar_t* key, int& value);
// The key's value; false, with value left, when the key has no value.
bool GetStringSetting(const wchar_t* key, host::WStr& value);
bool SetIntSetting(const wchar_t* key, int value);
// Written as a verbatim string, so that the backslashes of a path stay as they are.
bool SetStringSetting(const wchar_t* key, const wchar_t* value);

}  // namespace zorvanta
