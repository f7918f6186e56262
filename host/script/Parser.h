#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "host/script/ControlNodes.h"
#include "host/script/Scopes.h"
#include "host/script/Token.h"

namespace host::script {

class Globals;
class Program;

// An operator's text and what it does.
struct OperatorName {
    const wchar_t* text;
    BinaryOp op;
};

// Reads a script into a Program, resolving its variables on the way (see Scopes).
// Throws SyntaxError with the place of the first thing it cannot read.
class Parser {
public:
    // Reads text; global names go into globals.
    static std::shared_ptr<Program> Parse(std::wstring_view text, Globals& globals);

private:
    Parser(std::vector<Token> tokens, Program& program, Globals& globals);

    // Token access.
    const Token& Peek(size_t ahead = 0) const;
    const Token& Next();
    bool At(TokenKind kind) const { return Peek().kind == kind; }
    bool AtKeyword(const wchar_t* k) const { return Peek().IsKeyword(k); }
    bool AtOperator(const wchar_t* op) const { return Peek().IsOperator(op); }
    void SkipNewlines();
    // True (newlines skipped) when the next token past newlines is keyword k.
    bool KeywordAfterNewlines(const wchar_t* k);
    const Token& Expect(TokenKind kind, const wchar_t* what);
    void ExpectKeyword(const wchar_t* k);
    [[noreturn]] void Fail(const Token& at, const std::wstring& message) const;

    // Grammar, from the loosest binding down.
    void ParseTopLevel();
    NodePtr ParseExpr();
    NodePtr ParseKeywordExpr();
    NodePtr ParseAssignment();
    NodePtr ParseLogicLevel(bool isAnd, NodePtr (Parser::*next)());
    NodePtr ParseOr();
    NodePtr ParseAnd();
    NodePtr ParseNot();
    NodePtr ParseBinaryLevel(std::span<const OperatorName> level, NodePtr (Parser::*next)());
    NodePtr ParseCompare();
    NodePtr ParseAdditive();
    NodePtr ParseTerm();
    NodePtr ParseUnary();
    NodePtr ParsePower();
    NodePtr ParseCall();
    bool AtArgumentStart() const;
    NodePtr ParseOperand();
    // Member access, indexing and `()` after node, whose text starts at start.
    NodePtr ParsePostfix(NodePtr node, const Token& start);
    NodePtr ParsePrimary();
    NodePtr ParseBlock();
    NodePtr ParseArrayLiteral();
    NodePtr ParsePointLiteral();
    std::unique_ptr<VarNode> MakeVar(const Token& name);

    NodePtr ParseIf();
    NodePtr ParseWhile();
    NodePtr ParseDoWhile();
    NodePtr ParseFor();
    NodePtr ParseFunction();
    void ParseParameters(FunctionNode& fn);
    NodePtr ParseDefault();
    NodePtr ParseNegativeOperand();
    NodePtr ParseJump();
    NodePtr ParseDeclaration();
    NodePtr ParseTry();
    NodePtr ParseContext();
    // A sub-expression: one nesting level deeper.
    NodePtr Nested(NodePtr (Parser::*parse)());
    bool AtExpressionEnd() const;

    std::vector<Token> tokens_;
    size_t pos_ = 0;
    Program& program_;
    Scopes scopes_;
    int depth_ = 0;
    int loopDepth_ = 0;  // loops around this point in the innermost function
};

}  // namespace host::script
