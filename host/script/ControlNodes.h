#pragma once

#include <string>
#include <vector>

#include "host/script/ExprNodes.h"

namespace host::script {

// Nodes of control flow, declarations and contexts. Evaluated in EvalControl.cpp.

class IfNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    NodePtr condition, then, otherwise;  // otherwise may be null
};

class WhileNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    NodePtr condition, body;
    bool bodyFirst = false;  // do ... while
};

// for v = a to b [by s] (do | collect) body, and for v in seq (do | collect) body.
class ForNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    std::unique_ptr<VarNode> variable;
    NodePtr from, to, by;  // a range loop; by may be null
    NodePtr sequence;      // an `in` loop
    NodePtr body;
    bool collect = false;

private:
    Value RangeLoop(Interpreter& in) const;
    Value SequenceLoop(Interpreter& in) const;
    // One pass of the body; false when the loop must end.
    bool Step(Interpreter& in, std::vector<Value>* collected) const;
};

// exit [with v], continue, return [v], throw [v].
class JumpNode : public Node {
public:
    enum class Kind { Exit, Continue, Return, Throw };
    JumpNode(int l, int c, Kind k) : Node(l, c), kind(k) {}
    Value Eval(Interpreter& in) const override;
    Kind kind;
    NodePtr value;  // may be null
};

// local a = 1, b / global c = 2.
class DeclareNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    std::vector<std::unique_ptr<VarNode>> variables;
    std::vector<NodePtr> values;  // null where there is no initial value
};

// A function definition: its parameters take the first frame slots, positional ones
// first, keyword ones after.
class FunctionNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    std::wstring name;
    std::unique_ptr<VarNode> target;  // the variable that receives the function
    int positionalCount = 0;
    std::vector<std::wstring> keywordNames;  // lower case
    std::vector<NodePtr> keywordDefaults;
    NodePtr body;
    int frameSize = 0;
    std::vector<const VarInfo*> capturedLocals;  // locals that start as cells
    std::vector<UpvalueSource> upvalues;
};

class TryNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    NodePtr body, handler;
};

// undo "name" on (...), animate on (...), at time t (...).
class ContextNode : public Node {
public:
    enum class Kind { Undo, Animate, AtTime };
    ContextNode(int l, int c, Kind k) : Node(l, c), kind(k) {}
    Value Eval(Interpreter& in) const override;
    Kind kind;
    NodePtr undoName;  // may be null
    NodePtr setting;   // on/off, or the time
    NodePtr body;

private:
    Value EvalUndo(Interpreter& in) const;
    Value EvalAnimate(Interpreter& in) const;
    Value EvalAtTime(Interpreter& in) const;
};

}  // namespace host::script
