#pragma once

#include <string>
#include <vector>

#include "host/script/Ast.h"

namespace host::script {

// Nodes of expressions that compute a value from others. Evaluated in EvalExpr.cpp
// and EvalCall.cpp.

class LiteralNode : public Node {
public:
    LiteralNode(int l, int c, Value v) : Node(l, c), value(std::move(v)) {}
    Value Eval(Interpreter&) const override { return value; }
    Value value;
};

// A variable, resolved when the script was read.
class VarNode : public AssignableNode {
public:
    enum class Kind { Local, Upvalue, Global };
    VarNode(int l, int c, std::wstring n) : AssignableNode(l, c), name(std::move(n)) {}
    Value Eval(Interpreter& in) const override;
    Value Assign(Interpreter& in, BinaryOp op, const Node& rhs) const override;
    void Store(Interpreter& in, Value v) const override;

    std::wstring name;
    Kind kind = Kind::Global;
    int index = 0;                   // upvalue or global index
    const VarInfo* local = nullptr;  // for Kind::Local
};

// $name: the scene node of that name.
class NodePathNode : public Node {
public:
    NodePathNode(int l, int c, std::wstring n) : Node(l, c), name(std::move(n)) {}
    Value Eval(Interpreter& in) const override;
    std::wstring name;
};

class ArrayNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    std::vector<NodePtr> items;
};

// [x, y] or [x, y, z].
class PointNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    std::vector<NodePtr> items;
};

// ( a; b; c ): the value of the last expression, undefined when empty.
class BlockNode : public Node {
public:
    using Node::Node;
    Value Eval(Interpreter& in) const override;
    std::vector<NodePtr> items;
};

class NegateNode : public Node {
public:
    NegateNode(int l, int c, NodePtr o) : Node(l, c), operand(std::move(o)) {}
    Value Eval(Interpreter& in) const override;
    NodePtr operand;
};

class NotNode : public Node {
public:
    NotNode(int l, int c, NodePtr o) : Node(l, c), operand(std::move(o)) {}
    Value Eval(Interpreter& in) const override;
    NodePtr operand;
};

class BinaryNode : public Node {
public:
    BinaryNode(int l, int c, BinaryOp o, NodePtr a, NodePtr b)
        : Node(l, c), op(o), lhs(std::move(a)), rhs(std::move(b)) {}
    Value Eval(Interpreter& in) const override;
    BinaryOp op;
    NodePtr lhs, rhs;
};

// `and` / `or`, evaluating the right side only when it decides.
class LogicNode : public Node {
public:
    LogicNode(int l, int c, bool isAnd, NodePtr a, NodePtr b)
        : Node(l, c), isAnd(isAnd), lhs(std::move(a)), rhs(std::move(b)) {}
    Value Eval(Interpreter& in) const override;
    bool isAnd;
    NodePtr lhs, rhs;
};

class AssignNode : public Node {
public:
    AssignNode(int l, int c, BinaryOp o, NodePtr t, NodePtr v)
        : Node(l, c), op(o), target(std::move(t)), value(std::move(v)) {}
    Value Eval(Interpreter& in) const override {
        return static_cast<const AssignableNode&>(*target).Assign(in, op, *value);
    }
    BinaryOp op;
    NodePtr target, value;
};

// a.name
class MemberNode : public AssignableNode {
public:
    MemberNode(int l, int c, NodePtr o, std::wstring n)
        : AssignableNode(l, c), object(std::move(o)), name(std::move(n)) {}
    Value Eval(Interpreter& in) const override;
    void Store(Interpreter& in, Value v) const override;
    NodePtr object;
    std::wstring name;
};

// a[i], 1-based.
class IndexNode : public AssignableNode {
public:
    IndexNode(int l, int c, NodePtr o, NodePtr i)
        : AssignableNode(l, c), object(std::move(o)), index(std::move(i)) {}
    Value Eval(Interpreter& in) const override;
    void Store(Interpreter& in, Value v) const override;
    NodePtr object, index;
};

// f a b key:v, or f() with no arguments.
class CallNode : public Node {
public:
    CallNode(int l, int c, NodePtr f) : Node(l, c), callee(std::move(f)) {}
    Value Eval(Interpreter& in) const override;
    NodePtr callee;
    std::vector<NodePtr> args;
    std::vector<std::wstring> keywordNames;  // lower case
    std::vector<NodePtr> keywordValues;
};

}  // namespace host::script
