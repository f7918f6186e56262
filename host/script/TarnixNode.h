#pragma once

#include <string>

#include "host/script/Value.h"

namespace host::script {

// The node of that name in the scene ($name), or undefined.
Value FindNodeValue(const std::wstring& name);

}  // namespace host::script
