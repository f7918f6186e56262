#pragma once

namespace host::script {

class Interpreter;

// The built-ins that go through the host's services: the settings file
// (getTarnixIniFile, GetINISetting, SetINISetting) and the dialogs (messagebox).
void DefineServiceBuiltins(Interpreter& in);

}  // namespace host::script
