#include "host/script/ExecuteScript.h"

#include "host/object/Interface.h"
#include "host/script/FPConvert.h"
#include "host/script/Interpreter.h"

namespace host {

script::Interpreter& TheListener() {
    static script::Interpreter listener;
    return listener;
}

bool ExecuteTarnixScriptScript(const wchar_t* text, bool quietErrors, FPValue* result,
                               bool logQuietErrors) {
    script::Value value;
    script::ScriptFailure failure;
    const bool ran = TheListener().Run(text ? text : L"", value, failure);
    if (!ran) {
        if (!quietErrors || logQuietErrors)
            GetCOREInterface()->Print(WStr(failure.Report() + L"\n"));
        if (result) result->Init();
        return false;
    }
    if (result && !script::ToFPValue(value, *result)) result->Init();
    return true;
}

}  // namespace host
