#include "host/script/Scopes.h"

#include "host/script/ExprNodes.h"
#include "host/script/Globals.h"
#include "host/script/Program.h"

namespace host::script {

Scopes::Scopes(Program& program, Globals& globals) : program_(program), globals_(globals) {
    functions_.emplace_back();
    BeginBlock();
}

void Scopes::BeginBlock() {
    functions_.back().blocks.emplace_back();
}

void Scopes::EndBlock() {
    functions_.back().blocks.pop_back();
}

void Scopes::BeginFunction() {
    functions_.emplace_back();
    BeginBlock();
}

void Scopes::EndFunction(FunctionNode& fn) {
    Function& f = functions_.back();
    fn.frameSize = f.nextSlot;
    for (const VarInfo* v : f.locals)
        if (v->captured) fn.capturedLocals.push_back(v);
    fn.upvalues = std::move(f.upvalues);
    functions_.pop_back();
}

void Scopes::EndProgram() {
    Function& f = functions_.front();
    program_.frameSize = f.nextSlot;
    for (const VarInfo* v : f.locals)
        if (v->captured) program_.capturedLocals.push_back(v);
}

Scopes::Lookup Scopes::Find(size_t function, const std::wstring& name) {
    Function& f = functions_[function];
    for (auto block = f.blocks.rbegin(); block != f.blocks.rend(); ++block) {
        auto it = block->find(name);
        if (it == block->end()) continue;
        if (!it->second) return {Found::Global};
        return {Found::Local, it->second};
    }
    if (auto it = f.upvalueIndex.find(name); it != f.upvalueIndex.end())
        return {Found::Upvalue, nullptr, it->second};
    if (function == 0) return {};
    const Lookup outer = Find(function - 1, name);
    if (outer.found != Found::Local && outer.found != Found::Upvalue) return outer;
    // A variable of an enclosing function: this function keeps it in its closure.
    UpvalueSource source;
    if (outer.found == Found::Local) {
        outer.local->captured = true;
        source = {true, outer.local->slot};
    } else {
        source = {false, outer.upvalue};
    }
    const int index = int(f.upvalues.size());
    f.upvalues.push_back(source);
    f.upvalueIndex.emplace(name, index);
    return {Found::Upvalue, nullptr, index};
}

void Scopes::Bind(VarNode& var, const Lookup& where) {
    switch (where.found) {
        case Found::Local:
            var.kind = VarNode::Kind::Local;
            var.local = where.local;
            break;
        case Found::Upvalue:
            var.kind = VarNode::Kind::Upvalue;
            var.index = where.upvalue;
            break;
        case Found::Global:
        case Found::Nothing:
            BindGlobal(var, false);
            break;
    }
}

void Scopes::BindGlobal(VarNode& var, bool declare) {
    var.kind = VarNode::Kind::Global;
    var.index = globals_.Index(var.name);
    if (declare) globals_[var.index].declared = true;
}

void Scopes::Resolve(VarNode& var) {
    Bind(var, Find(functions_.size() - 1, var.name));
}

void Scopes::ResolveAssignTarget(VarNode& var) {
    const Lookup where = Find(functions_.size() - 1, var.name);
    if (where.found != Found::Nothing) return Bind(var, where);
    const int known = globals_.Find(var.name);
    const bool isGlobal =
        !InFunction() || (known >= 0 && (globals_[known].defined || globals_[known].declared));
    if (isGlobal) return BindGlobal(var, true);
    DeclareLocal(var);
}

void Scopes::DeclareLocal(VarNode& var) {
    Function& f = functions_.back();
    program_.variables.push_back(std::make_unique<VarInfo>());
    VarInfo* info = program_.variables.back().get();
    info->slot = f.nextSlot++;
    f.locals.push_back(info);
    f.blocks.back()[var.name] = info;
    var.kind = VarNode::Kind::Local;
    var.local = info;
}

void Scopes::DeclareGlobal(VarNode& var) {
    functions_.back().blocks.back()[var.name] = nullptr;
    BindGlobal(var, true);
}

void Scopes::DeclareFunctionName(VarNode& var) {
    if (InFunction())
        DeclareLocal(var);
    else
        BindGlobal(var, true);
}

}  // namespace host::script
