#pragma once

#include "host/script/Ast.h"
#include "host/script/Value.h"

namespace host::script {

class Interpreter;

// The operators on any values: numbers (integer results for integers, wrapping on
// overflow), strings (+ joins, comparisons order), points (+, -, scaled by a number).
// An operation with no meaning for its operands raises an error at `at`.
Value Arithmetic(Interpreter& in, const Node& at, BinaryOp op, const Value& a, const Value& b);
Value Negate(Interpreter& in, const Node& at, const Value& v);
// ==: numbers by value, strings by text, names without case, points by components,
// arrays and scene values by identity.
bool Equal(const Value& a, const Value& b);

}  // namespace host::script
