#pragma once

namespace zorvanta {

// The text of string id, copied into one static buffer of 512 wide characters (longer
// texts are cut), or null for an id the table does not hold. Every call overwrites the
// buffer, so a caller that needs two strings copies the first. Main thread only.
const wchar_t* GetString(int id);

// The number of strings in the table.
int NumStrings();

}  // namespace zorvanta
