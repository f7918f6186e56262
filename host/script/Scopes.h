#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/script/Ast.h"

namespace host::script {

class FunctionNode;
class Globals;
class Program;
class VarNode;

// The compile step: while the parser reads a script, this resolves each variable to a
// frame slot, a captured cell of an enclosing function or a global slot, so that no
// name is looked up while the script runs.
//
// Rules: `local` declares in the innermost block; parameters and loop variables are
// locals of their function or loop. An assignment to a name that is neither a local,
// nor an enclosing function's local, nor a known global makes a global at the top level
// and a local inside a function.
class Scopes {
public:
    Scopes(Program& program, Globals& globals);

    void BeginBlock();
    void EndBlock();
    void BeginFunction();
    // Writes the frame layout of the function just read into fn.
    void EndFunction(FunctionNode& fn);
    // Writes the top-level frame layout into the program.
    void EndProgram();
    bool InFunction() const { return functions_.size() > 1; }

    // A variable read, or updated by a compound assignment.
    void Resolve(VarNode& var);
    // The target of a plain `=`.
    void ResolveAssignTarget(VarNode& var);
    void DeclareLocal(VarNode& var);
    void DeclareGlobal(VarNode& var);
    // The name of a `fn`: global at the top level, local inside a function.
    void DeclareFunctionName(VarNode& var);

private:
    struct Function {
        // Per block: name to local, or to null for a name declared `global` there.
        std::vector<std::unordered_map<std::wstring, VarInfo*>> blocks;
        std::unordered_map<std::wstring, int> upvalueIndex;
        std::vector<UpvalueSource> upvalues;
        std::vector<const VarInfo*> locals;
        int nextSlot = 0;
    };
    enum class Found { Nothing, Local, Upvalue, Global };
    struct Lookup {
        Found found = Found::Nothing;
        VarInfo* local = nullptr;
        int upvalue = 0;
    };

    Lookup Find(size_t function, const std::wstring& name);
    void Bind(VarNode& var, const Lookup& where);
    void BindGlobal(VarNode& var, bool declare);

    Program& program_;
    Globals& globals_;
    std::vector<Function> functions_;  // [0] is the script's top level
};

}  // namespace host::script
