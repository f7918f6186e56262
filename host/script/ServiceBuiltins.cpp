#include "host/script/ServiceBuiltins.h"

#include "host/core/IniSettings.h"
#include "host/object/Interface.h"
#include "host/script/Callable.h"
#include "host/script/Interpreter.h"
#include "host/script/ScriptError.h"
#include "host/script/ValueObjects.h"
#include "host/script/ValueText.h"

namespace host::script {

namespace {

WStr StringArg(const CallArgs& args, int i, const wchar_t* function) {
    if (args[i].tag() != Tag::String)
        throw RuntimeError(WStr(std::wstring(L"Expected a string in ") + function + L", got " +
                                PrintText(args[i])));
    return WStr(TextOf(args[i]));
}

// Scripts reach no file but the host's settings files: any other path is refused.
WStr SettingsFileArg(const CallArgs& args, const wchar_t* function) {
    const WStr file = StringArg(args, 0, function);
    if (file != getTarnixIniFile() && file != GetPlugCfgIniFile())
        throw RuntimeError(WStr(std::wstring(function) +
                                L": only the host's settings files can be used, not " +
                                file.str()));
    return file;
}

Value TarnixIniFile(CallArgs& args) {
    args.CheckCount(L"getTarnixIniFile", 0);
    return MakeString(getTarnixIniFile().str());
}

// The key's value as a string, "" when it is not there.
Value GetIniSetting(CallArgs& args) {
    args.CheckCount(L"GetINISetting", 3);
    const WStr file = SettingsFileArg(args, L"GetINISetting");
    return MakeString(GetINISetting(file, StringArg(args, 1, L"GetINISetting"),
                                    StringArg(args, 2, L"GetINISetting"))
                          .str());
}

// Writes the value's text (a number as its digits); true when the file holds it.
Value SetIniSetting(CallArgs& args) {
    args.CheckCount(L"SetINISetting", 4);
    const WStr file = SettingsFileArg(args, L"SetINISetting");
    return Value::Bool(SetINISetting(file, StringArg(args, 1, L"SetINISetting"),
                                     StringArg(args, 2, L"SetINISetting"),
                                     WStr(PlainText(args[3]))));
}

// messagebox text [title:t]: an OK box through the host's dialogs.
Value MessageBox(CallArgs& args) {
    args.CheckCount(L"messagebox", 1);
    const Value* title = args.Keyword(L"title");
    GetCOREInterface()->GetDialogService().MessageBox(
        WStr(PlainText(args[0])), WStr(title ? PlainText(*title) : L"TarnixScript"), MB_OK);
    return Value::Ok();
}

constexpr BuiltinFunction kServiceBuiltins[] = {
    {L"gettarnixinifile", TarnixIniFile},
    {L"getinisetting", GetIniSetting},
    {L"setinisetting", SetIniSetting},
    {L"messagebox", MessageBox},
};

}  // namespace

void DefineServiceBuiltins(Interpreter& in) {
    in.DefinePrimitives(kServiceBuiltins);
}

}  // namespace host::script
