#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/script/Value.h"

namespace host::script {

class Interpreter;

// A node of a parsed script. Every node knows where its text starts (1-based line and
// column) and evaluates itself; evaluation never throws: an error, a `return`, `exit` or
// `continue` is a signal the interpreter carries up until a node that handles it.
class Node {
public:
    Node(int l, int c) : line(l), column(c) {}
    virtual ~Node() = default;
    virtual Value Eval(Interpreter& in) const = 0;
    // Only assignable nodes (variables, properties, indexed items) override these.
    virtual bool IsAssignable() const { return false; }
    int line;
    int column;
};
using NodePtr = std::unique_ptr<Node>;

// The binary operators; None for a plain `=`.
enum class BinaryOp { None, Add, Sub, Mul, Div, Pow, Eq, Ne, Lt, Le, Gt, Ge };

// A node that can be written: `x = v`, `x += v`, `a.b = v`, `a[i] = v`.
class AssignableNode : public Node {
public:
    using Node::Node;
    bool IsAssignable() const override { return true; }
    // Evaluates rhs, combines it with the present value for a compound op, stores it,
    // and returns the stored value.
    virtual Value Assign(Interpreter& in, BinaryOp op, const Node& rhs) const;
    // Writes v (an error raised in the interpreter when it cannot).
    virtual void Store(Interpreter& in, Value v) const = 0;
};

// Where a local lives: its slot in the frame of its function and whether an inner
// function uses it (then the slot holds a cell shared with that function's closure).
struct VarInfo {
    int slot = 0;
    bool captured = false;
};

// Where an inner function finds one of its free variables when it is made: a local of
// the function around it (a cell in that frame), or one of that function's own.
struct UpvalueSource {
    bool fromLocal = true;
    int index = 0;  // frame slot, or index in the enclosing closure's cells
};

}  // namespace host::script
