#pragma once

#include <string>

#include "host/script/Value.h"

namespace host::script {

// What an unassigned global name stands for in the scene: a static interface by its
// name, or a class by its internal name. Undefined when neither.
Value FindSceneGlobal(const std::wstring& name);

}  // namespace host::script
