#pragma once

#include <string>

#include "host/script/Value.h"

namespace host::script {

class Interpreter;

// The built-ins that reach the scene: getSubAnim, isValidNode, getNodeByName,
// select, deselect, clearSelection, delete, superClassOf, FBXImporterSetParam.
void DefineSceneBuiltins(Interpreter& in);
// The globals that read the scene each time: selection, sliderTime (frames),
// animationRange ([start, end] in frames), frameRate, tarnixOps. Undefined for any
// other name.
Value SceneVariable(const std::wstring& name);

}  // namespace host::script
