#pragma once

#include <string>

#include "host/core/WStr.h"

namespace host {

// The host's settings files and the calls that read and write them, one value at a time.
// Every read loads the file afresh and every write goes through a temporary file, so two
// programs sharing a file see each other's changes and a failed write keeps the old file.

// The folder that holds the host's settings files: the one SetConfigFolder gave, else
// $XDG_CONFIG_HOME/zorvanta when that is an absolute path, else $HOME/.config/zorvanta.
std::string ConfigFolder();
// Points the settings files at another folder (tests); an empty path restores the default.
void SetConfigFolder(std::string folder);
// Points getTarnixIniFile() at one file (tests); an empty path restores the default.
void SetTarnixIniFile(std::string path);

// The host's settings file: Tarnix.ini in the configuration folder.
WStr getTarnixIniFile();
// The file plug-ins keep their own settings in, beside Tarnix.ini.
WStr GetPlugCfgIniFile();

// The key's value as text; empty when the file, the section or the key is not there, or
// the file cannot be read.
WStr GetINISetting(const WStr& file, const WStr& section, const WStr& key);
// Writes the key's value, creating the file and its folder when needed. False, with the
// file as it was, when the file cannot be read or written, or a name or the value cannot
// be held in an INI line (a line break, a '=' in the key, a ']' in the section).
bool SetINISetting(const WStr& file, const WStr& section, const WStr& key, const WStr& value);

namespace Util {

// The key's value, or defaultValue when the key is not there or its value does not start
// with a decimal number (blanks and a sign may come first; what follows the digits is
// ignored). Values outside the range of int are clamped.
int GetPrivateProfileInt(const wchar_t* section, const wchar_t* key, int defaultValue,
                         const wchar_t* file);
// The key's value, or defaultValue (empty when null) when it is not there.
WStr GetPrivateProfileString(const wchar_t* section, const wchar_t* key,
                             const wchar_t* defaultValue, const wchar_t* file);
// Writes the key's value; a null value removes the key, a null key the whole section.
// Returns whether the file now holds what was asked.
bool WritePrivateProfileString(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                               const wchar_t* file);

}  // namespace Util

}  // namespace host
