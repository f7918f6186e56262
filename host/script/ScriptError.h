#pragma once

#include "host/core/WStr.h"

namespace host {

// An error that C++ code raises into a running script: a built-in, a registered global
// function or a published interface's dispatch throws one, the interpreter catches it
// where the script made the call and reports it with that call's line and column.
// Scripts catch it with try/catch; getCurrentException() gives Message().
class ScriptException {
public:
    virtual ~ScriptException() = default;
    virtual WStr Message() const = 0;
};

// A runtime error with a fixed text, as the functions a library publishes raise them.
class RuntimeError : public ScriptException {
public:
    explicit RuntimeError(WStr text) : text_(std::move(text)) {}
    WStr Message() const override { return text_; }

private:
    WStr text_;
};

// A call with the wrong number of arguments: names the function and both counts.
class ArgCountError : public ScriptException {
public:
    ArgCountError(const WStr& function, int wanted, int got);
    WStr Message() const override { return text_; }

private:
    WStr text_;
};

}  // namespace host
