#include "host/script/Parser.h"

#include "host/script/Globals.h"
#include "host/script/Lexer.h"
#include "host/script/Program.h"
#include "host/script/SyntaxError.h"
#include "host/script/ValueObjects.h"

namespace host::script {

namespace {

// Deeper nesting, or longer chains of operators (which the tree nests just as deep),
// are refused rather than risking the native stack when the script runs.
constexpr int kMaxNesting = 48;
constexpr int kMaxChain = 64;
// Keyword parameters are tracked in a 64-bit mask when a call binds them.
constexpr size_t kMaxKeywordParameters = 64;

constexpr OperatorName kCompareOps[] = {{L"==", BinaryOp::Eq}, {L"!=", BinaryOp::Ne},
                                        {L"<", BinaryOp::Lt},  {L"<=", BinaryOp::Le},
                                        {L">", BinaryOp::Gt},  {L">=", BinaryOp::Ge}};
constexpr OperatorName kAddOps[] = {{L"+", BinaryOp::Add}, {L"-", BinaryOp::Sub}};
constexpr OperatorName kMultiplyOps[] = {{L"*", BinaryOp::Mul}, {L"/", BinaryOp::Div}};
constexpr OperatorName kAssignOps[] = {{L"=", BinaryOp::None},
                                       {L"+=", BinaryOp::Add},
                                       {L"-=", BinaryOp::Sub},
                                       {L"*=", BinaryOp::Mul},
                                       {L"/=", BinaryOp::Div}};

const OperatorName* FindOp(std::span<const OperatorName> table, const Token& t) {
    if (t.kind != TokenKind::Operator) return nullptr;
    for (const OperatorName& entry : table)
        if (t.text == entry.text) return &entry;
    return nullptr;
}

std::wstring Describe(const Token& t) {
    switch (t.kind) {
        case TokenKind::End:
            return L"end of script";
        case TokenKind::Newline:
            return L"end of line";
        case TokenKind::Integer:
        case TokenKind::Float:
            return L"a number";
        case TokenKind::String:
            return L"a string";
        case TokenKind::Name:
            return L"#" + t.text;
        case TokenKind::NodePath:
            return L"$" + t.text;
        case TokenKind::ArrayOpen:
            return L"\"#(\"";
        case TokenKind::LParen:
            return L"\"(\"";
        case TokenKind::RParen:
            return L"\")\"";
        case TokenKind::LBracket:
            return L"\"[\"";
        case TokenKind::RBracket:
            return L"\"]\"";
        case TokenKind::Comma:
            return L"\",\"";
        case TokenKind::Dot:
            return L"\".\"";
        case TokenKind::Colon:
            return L"\":\"";
        default:
            return L"\"" + t.text + L"\"";
    }
}

// The literals a keyword stands for.
bool KeywordLiteral(const Token& t, Value& v) {
    if (t.kind != TokenKind::Keyword) return false;
    if (t.text == L"true" || t.text == L"on")
        v = Value::Bool(true);
    else if (t.text == L"false" || t.text == L"off")
        v = Value::Bool(false);
    else if (t.text == L"undefined")
        v = Value();
    else if (t.text == L"ok")
        v = Value::Ok();
    else
        return false;
    return true;
}

// Counts the operators of one chain: `a + b + c` builds a tree as deep as it is long.
class ChainCounter {
public:
    void Step(const Token& at) {
        if (++count_ > kMaxChain)
            throw SyntaxError{L"expression too long: more than 64 operators in a row", at.line,
                              at.column};
    }

private:
    int count_ = 0;
};

class NestingGuard {
public:
    NestingGuard(int& depth, const Token& at) : depth_(depth) {
        if (++depth_ > kMaxNesting) {
            --depth_;
            throw SyntaxError{L"expression nested too deeply", at.line, at.column};
        }
    }
    ~NestingGuard() { --depth_; }

private:
    int& depth_;
};

}  // namespace

std::shared_ptr<Program> Parser::Parse(std::wstring_view text, Globals& globals) {
    auto program = std::make_shared<Program>();
    Parser parser(Lexer(text).Tokenize(), *program, globals);
    parser.ParseTopLevel();
    return program;
}

Parser::Parser(std::vector<Token> tokens, Program& program, Globals& globals)
    : tokens_(std::move(tokens)), program_(program), scopes_(program, globals) {}

const Token& Parser::Peek(size_t ahead) const {
    return tokens_[std::min(pos_ + ahead, tokens_.size() - 1)];
}

const Token& Parser::Next() {
    const Token& t = tokens_[pos_];
    if (pos_ + 1 < tokens_.size()) ++pos_;
    return t;
}

void Parser::SkipNewlines() {
    while (At(TokenKind::Newline)) Next();
}

bool Parser::KeywordAfterNewlines(const wchar_t* k) {
    size_t ahead = 0;
    while (Peek(ahead).kind == TokenKind::Newline) ++ahead;
    if (!Peek(ahead).IsKeyword(k)) return false;
    SkipNewlines();
    return true;
}

const Token& Parser::Expect(TokenKind kind, const wchar_t* what) {
    if (!At(kind)) Fail(Peek(), std::wstring(L"expected ") + what + L", got " + Describe(Peek()));
    return Next();
}

void Parser::ExpectKeyword(const wchar_t* k) {
    if (!AtKeyword(k))
        Fail(Peek(), std::wstring(L"expected \"") + k + L"\", got " + Describe(Peek()));
    Next();
}

void Parser::Fail(const Token& at, const std::wstring& message) const {
    throw SyntaxError{message, at.line, at.column};
}

void Parser::ParseTopLevel() {
    program_.body = std::make_unique<BlockNode>(1, 1);
    SkipNewlines();
    while (!At(TokenKind::End)) {
        program_.body->items.push_back(ParseExpr());
        if (!At(TokenKind::End) && !At(TokenKind::Newline))
            Fail(Peek(), L"expected end of expression, got " + Describe(Peek()));
        SkipNewlines();
    }
    scopes_.EndProgram();
}

NodePtr Parser::Nested(NodePtr (Parser::*parse)()) {
    NestingGuard guard(depth_, Peek());
    return (this->*parse)();
}

NodePtr Parser::ParseExpr() {
    NestingGuard guard(depth_, Peek());
    if (At(TokenKind::Keyword)) {
        if (NodePtr node = ParseKeywordExpr()) return node;
    }
    return ParseAssignment();
}

NodePtr Parser::ParseKeywordExpr() {
    const std::wstring& k = Peek().text;
    if (k == L"if") return ParseIf();
    if (k == L"while") return ParseWhile();
    if (k == L"do") return ParseDoWhile();
    if (k == L"for") return ParseFor();
    if (k == L"fn" || k == L"function") return ParseFunction();
    if (k == L"return" || k == L"exit" || k == L"continue" || k == L"throw") return ParseJump();
    if (k == L"local" || k == L"global") return ParseDeclaration();
    if (k == L"try") return ParseTry();
    if (k == L"undo" || k == L"animate" || k == L"at" || k == L"with") return ParseContext();
    return nullptr;
}

NodePtr Parser::ParseAssignment() {
    NodePtr lhs = ParseOr();
    const OperatorName* assign = FindOp(kAssignOps, Peek());
    if (!assign) return lhs;
    const Token& opToken = Next();
    if (!lhs->IsAssignable()) Fail(opToken, L"cannot assign to this expression");
    if (auto* var = dynamic_cast<VarNode*>(lhs.get()); var && assign->op == BinaryOp::None)
        scopes_.ResolveAssignTarget(*var);
    SkipNewlines();
    NodePtr rhs = ParseExpr();
    const int line = lhs->line, column = lhs->column;
    return std::make_unique<AssignNode>(line, column, assign->op, std::move(lhs), std::move(rhs));
}

// `and` or `or` chains: operands parsed by next.
NodePtr Parser::ParseLogicLevel(bool isAnd, NodePtr (Parser::*next)()) {
    const wchar_t* keyword = isAnd ? L"and" : L"or";
    NodePtr lhs = (this->*next)();
    ChainCounter chain;
    while (AtKeyword(keyword)) {
        chain.Step(Peek());
        const Token& op = Next();
        SkipNewlines();
        lhs =
            std::make_unique<LogicNode>(op.line, op.column, isAnd, std::move(lhs), (this->*next)());
    }
    return lhs;
}

NodePtr Parser::ParseOr() {
    return ParseLogicLevel(false, &Parser::ParseAnd);
}

NodePtr Parser::ParseAnd() {
    return ParseLogicLevel(true, &Parser::ParseNot);
}

NodePtr Parser::ParseNot() {
    if (!AtKeyword(L"not")) return ParseCompare();
    const Token& op = Next();
    return std::make_unique<NotNode>(op.line, op.column, Nested(&Parser::ParseNot));
}

// One level of left-associative binary operators: operands parsed by next, joined by
// the operators of the level's table.
NodePtr Parser::ParseBinaryLevel(std::span<const OperatorName> level, NodePtr (Parser::*next)()) {
    NodePtr lhs = (this->*next)();
    ChainCounter chain;
    while (const OperatorName* found = FindOp(level, Peek())) {
        chain.Step(Peek());
        const Token& op = Next();
        SkipNewlines();
        lhs = std::make_unique<BinaryNode>(op.line, op.column, found->op, std::move(lhs),
                                           (this->*next)());
    }
    return lhs;
}

NodePtr Parser::ParseCompare() {
    return ParseBinaryLevel(kCompareOps, &Parser::ParseAdditive);
}

NodePtr Parser::ParseAdditive() {
    return ParseBinaryLevel(kAddOps, &Parser::ParseTerm);
}

NodePtr Parser::ParseTerm() {
    return ParseBinaryLevel(kMultiplyOps, &Parser::ParseUnary);
}

NodePtr Parser::ParseUnary() {
    if (!AtOperator(L"-")) return ParsePower();
    const Token& op = Next();
    NodePtr operand = Nested(&Parser::ParseUnary);
    // A negative literal is folded, so that -5 is one constant.
    if (auto* literal = dynamic_cast<LiteralNode*>(operand.get())) {
        if (literal->value.IsInteger())
            literal->value = Value::Integer(int64_t(0ULL - uint64_t(literal->value.AsInteger())));
        else if (literal->value.IsFloat())
            literal->value = Value::Float(-literal->value.AsFloat());
        else
            return std::make_unique<NegateNode>(op.line, op.column, std::move(operand));
        literal->line = op.line;
        literal->column = op.column;
        return operand;
    }
    return std::make_unique<NegateNode>(op.line, op.column, std::move(operand));
}

NodePtr Parser::ParsePower() {
    NodePtr base = ParseCall();
    if (!AtOperator(L"^")) return base;
    const Token& op = Next();
    SkipNewlines();
    return std::make_unique<BinaryNode>(op.line, op.column, BinaryOp::Pow, std::move(base),
                                        Nested(&Parser::ParseUnary));
}

bool Parser::AtArgumentStart() const {
    const Token& t = Peek();
    switch (t.kind) {
        case TokenKind::Integer:
        case TokenKind::Float:
        case TokenKind::String:
        case TokenKind::Name:
        case TokenKind::NodePath:
        case TokenKind::ArrayOpen:
        case TokenKind::LParen:
        case TokenKind::Identifier:
            return true;
        case TokenKind::LBracket:
            return t.spaceBefore;  // `f [1,2]`, not `a[1]`
        // `f -1` passes -1; `a - 1` and `a-1` subtract.
        case TokenKind::Operator:
            return t.text == L"-" && t.spaceBefore && !Peek(1).spaceBefore;
        case TokenKind::Keyword: {
            Value ignored;
            return KeywordLiteral(t, ignored);
        }
        default:
            return false;
    }
}

NodePtr Parser::ParseCall() {
    const Token& start = Peek();
    NodePtr callee = ParseOperand();
    // Only what can give a function takes arguments: `true print 1` is no call.
    const bool mayBeFunction =
        dynamic_cast<VarNode*>(callee.get()) || dynamic_cast<BlockNode*>(callee.get()) ||
        dynamic_cast<MemberNode*>(callee.get()) || dynamic_cast<IndexNode*>(callee.get()) ||
        dynamic_cast<CallNode*>(callee.get());
    if (!mayBeFunction || !AtArgumentStart()) return callee;
    auto call = std::make_unique<CallNode>(start.line, start.column, std::move(callee));
    while (AtArgumentStart()) {
        if (At(TokenKind::Identifier) && Peek(1).kind == TokenKind::Colon) {
            call->keywordNames.push_back(Next().text);
            Next();
            call->keywordValues.push_back(ParseOperand());
        } else {
            call->args.push_back(AtOperator(L"-") ? ParseNegativeOperand() : ParseOperand());
        }
    }
    return call;
}

NodePtr Parser::ParseOperand() {
    const Token& start = Peek();
    return ParsePostfix(ParsePrimary(), start);
}

NodePtr Parser::ParsePostfix(NodePtr node, const Token& start) {
    ChainCounter chain;
    for (;; chain.Step(Peek())) {
        if (At(TokenKind::Dot)) {
            const Token& dot = Next();
            const Token& name = Peek();
            if (name.kind != TokenKind::Identifier && name.kind != TokenKind::Keyword)
                Fail(name, L"expected a property name, got " + Describe(name));
            Next();
            node = std::make_unique<MemberNode>(dot.line, dot.column, std::move(node), name.text);
        } else if (At(TokenKind::LBracket) && !Peek().spaceBefore) {
            const Token& open = Next();
            SkipNewlines();
            NodePtr index = ParseExpr();
            SkipNewlines();
            Expect(TokenKind::RBracket, L"\"]\"");
            node = std::make_unique<IndexNode>(open.line, open.column, std::move(node),
                                               std::move(index));
        } else if (At(TokenKind::LParen) && Peek(1).kind == TokenKind::RParen) {
            Next();
            Next();
            node = std::make_unique<CallNode>(start.line, start.column, std::move(node));
        } else {
            return node;
        }
    }
}

NodePtr Parser::ParsePrimary() {
    const Token& t = Peek();
    Value literal;
    switch (t.kind) {
        case TokenKind::Integer:
            literal = Value::Integer(t.integer);
            break;
        case TokenKind::Float:
            literal = Value::Float(t.number);
            break;
        case TokenKind::String:
            literal = MakeString(t.text);
            break;
        case TokenKind::Name:
            literal = MakeName(t.text);
            break;
        case TokenKind::NodePath:
            Next();
            return std::make_unique<NodePathNode>(t.line, t.column, t.text);
        case TokenKind::Identifier:
            Next();
            return MakeVar(t);
        case TokenKind::LParen:
            return ParseBlock();
        case TokenKind::ArrayOpen:
            return ParseArrayLiteral();
        case TokenKind::LBracket:
            return ParsePointLiteral();
        case TokenKind::Keyword:
            if (KeywordLiteral(t, literal)) break;
            [[fallthrough]];
        default:
            Fail(t, L"expected an expression, got " + Describe(t));
    }
    Next();
    return std::make_unique<LiteralNode>(t.line, t.column, std::move(literal));
}

std::unique_ptr<VarNode> Parser::MakeVar(const Token& name) {
    auto var = std::make_unique<VarNode>(name.line, name.column, name.text);
    scopes_.Resolve(*var);
    return var;
}

NodePtr Parser::ParseBlock() {
    const Token& open = Next();
    auto block = std::make_unique<BlockNode>(open.line, open.column);
    scopes_.BeginBlock();
    SkipNewlines();
    while (!At(TokenKind::RParen)) {
        if (At(TokenKind::End)) Fail(open, L"\"(\" is never closed");
        block->items.push_back(ParseExpr());
        if (!At(TokenKind::RParen) && !At(TokenKind::Newline))
            Fail(Peek(), L"expected \")\" or end of line, got " + Describe(Peek()));
        SkipNewlines();
    }
    Next();
    scopes_.EndBlock();
    return block;
}

NodePtr Parser::ParseArrayLiteral() {
    const Token& open = Next();
    auto array = std::make_unique<ArrayNode>(open.line, open.column);
    SkipNewlines();
    while (!At(TokenKind::RParen)) {
        if (!array->items.empty()) {
            Expect(TokenKind::Comma, L"\",\" or \")\"");
            SkipNewlines();
        }
        array->items.push_back(ParseExpr());
        SkipNewlines();
    }
    Next();
    return array;
}

NodePtr Parser::ParsePointLiteral() {
    const Token& open = Next();
    auto point = std::make_unique<PointNode>(open.line, open.column);
    for (;;) {
        SkipNewlines();
        point->items.push_back(ParseExpr());
        SkipNewlines();
        if (!At(TokenKind::Comma)) break;
        Next();
    }
    Expect(TokenKind::RBracket, L"\"]\"");
    if (point->items.size() < 2 || point->items.size() > 3)
        Fail(open, L"a point has 2 or 3 components");
    return point;
}

NodePtr Parser::ParseIf() {
    const Token& start = Next();
    auto node = std::make_unique<IfNode>(start.line, start.column);
    SkipNewlines();
    node->condition = ParseExpr();
    SkipNewlines();
    if (AtKeyword(L"do")) {
        Next();
        SkipNewlines();
        node->then = ParseExpr();
        return node;
    }
    ExpectKeyword(L"then");
    SkipNewlines();
    node->then = ParseExpr();
    if (KeywordAfterNewlines(L"else")) {
        Next();
        SkipNewlines();
        node->otherwise = ParseExpr();
    }
    return node;
}

NodePtr Parser::ParseWhile() {
    const Token& start = Next();
    auto node = std::make_unique<WhileNode>(start.line, start.column);
    SkipNewlines();
    node->condition = ParseExpr();
    SkipNewlines();
    ExpectKeyword(L"do");
    SkipNewlines();
    ++loopDepth_;
    node->body = ParseExpr();
    --loopDepth_;
    return node;
}

NodePtr Parser::ParseDoWhile() {
    const Token& start = Next();
    auto node = std::make_unique<WhileNode>(start.line, start.column);
    node->bodyFirst = true;
    SkipNewlines();
    ++loopDepth_;
    node->body = ParseExpr();
    --loopDepth_;
    SkipNewlines();
    ExpectKeyword(L"while");
    SkipNewlines();
    node->condition = ParseExpr();
    return node;
}

NodePtr Parser::ParseFor() {
    const Token& start = Next();
    auto node = std::make_unique<ForNode>(start.line, start.column);
    const Token& name = Expect(TokenKind::Identifier, L"a loop variable");
    if (AtKeyword(L"in")) {
        Next();
        SkipNewlines();
        node->sequence = ParseExpr();
    } else {
        if (!AtOperator(L"=")) Fail(Peek(), L"expected \"=\" or \"in\", got " + Describe(Peek()));
        Next();
        SkipNewlines();
        node->from = ParseExpr();
        ExpectKeyword(L"to");
        SkipNewlines();
        node->to = ParseExpr();
        if (AtKeyword(L"by")) {
            Next();
            SkipNewlines();
            node->by = ParseExpr();
        }
    }
    SkipNewlines();
    if (AtKeyword(L"collect"))
        node->collect = true;
    else if (!AtKeyword(L"do"))
        Fail(Peek(), L"expected \"do\" or \"collect\", got " + Describe(Peek()));
    Next();
    SkipNewlines();
    scopes_.BeginBlock();
    node->variable = std::make_unique<VarNode>(name.line, name.column, name.text);
    scopes_.DeclareLocal(*node->variable);
    ++loopDepth_;
    node->body = ParseExpr();
    --loopDepth_;
    scopes_.EndBlock();
    return node;
}

NodePtr Parser::ParseFunction() {
    const Token& start = Next();
    auto node = std::make_unique<FunctionNode>(start.line, start.column);
    const Token& name = Expect(TokenKind::Identifier, L"a function name");
    node->name = name.text;
    node->target = std::make_unique<VarNode>(name.line, name.column, name.text);
    scopes_.DeclareFunctionName(*node->target);
    const int outerLoops = loopDepth_;
    loopDepth_ = 0;
    scopes_.BeginFunction();
    ParseParameters(*node);
    SkipNewlines();
    node->body = ParseExpr();
    scopes_.EndFunction(*node);
    loopDepth_ = outerLoops;
    return node;
}

void Parser::ParseParameters(FunctionNode& fn) {
    while (!AtOperator(L"=")) {
        const Token& name = Expect(TokenKind::Identifier, L"a parameter name or \"=\"");
        VarNode param(name.line, name.column, name.text);
        if (At(TokenKind::Colon)) {
            Next();
            if (fn.keywordNames.size() == kMaxKeywordParameters)
                Fail(name, L"too many keyword parameters");
            scopes_.DeclareLocal(param);
            fn.keywordNames.push_back(name.text);
            fn.keywordDefaults.push_back(ParseDefault());
        } else {
            if (!fn.keywordNames.empty())
                Fail(name, L"positional parameter after keyword parameters");
            scopes_.DeclareLocal(param);
            ++fn.positionalCount;
        }
    }
    Next();
}

NodePtr Parser::ParseDefault() {
    return AtOperator(L"-") ? ParseNegativeOperand() : ParseOperand();
}

NodePtr Parser::ParseNegativeOperand() {
    const Token& minus = Next();
    NodePtr operand = ParseOperand();
    if (auto* literal = dynamic_cast<LiteralNode*>(operand.get());
        literal && literal->value.IsNumber()) {
        literal->value = literal->value.IsInteger()
                             ? Value::Integer(int64_t(0ULL - uint64_t(literal->value.AsInteger())))
                             : Value::Float(-literal->value.AsFloat());
        literal->line = minus.line;
        literal->column = minus.column;
        return operand;
    }
    return std::make_unique<NegateNode>(minus.line, minus.column, std::move(operand));
}

bool Parser::AtExpressionEnd() const {
    return At(TokenKind::Newline) || At(TokenKind::End) || At(TokenKind::RParen) ||
           At(TokenKind::RBracket) || At(TokenKind::Comma) || AtKeyword(L"else") ||
           AtKeyword(L"catch") || AtKeyword(L"then") || AtKeyword(L"do");
}

NodePtr Parser::ParseJump() {
    const Token& start = Next();
    using Kind = JumpNode::Kind;
    const Kind kind = start.text == L"return"     ? Kind::Return
                      : start.text == L"exit"     ? Kind::Exit
                      : start.text == L"continue" ? Kind::Continue
                                                  : Kind::Throw;
    if (kind == Kind::Return && !scopes_.InFunction())
        Fail(start, L"\"return\" outside a function");
    if ((kind == Kind::Exit || kind == Kind::Continue) && loopDepth_ == 0)
        Fail(start, L"\"" + start.text + L"\" outside a loop");
    auto node = std::make_unique<JumpNode>(start.line, start.column, kind);
    if (kind == Kind::Exit) {
        if (AtKeyword(L"with")) {
            Next();
            node->value = ParseExpr();
        }
    } else if (kind != Kind::Continue && !AtExpressionEnd()) {
        node->value = ParseExpr();
    }
    return node;
}

NodePtr Parser::ParseDeclaration() {
    const Token& start = Next();
    const bool isLocal = start.text == L"local";
    auto node = std::make_unique<DeclareNode>(start.line, start.column);
    for (;;) {
        const Token& name = Expect(TokenKind::Identifier, L"a variable name");
        NodePtr value;
        if (AtOperator(L"=")) {
            Next();
            SkipNewlines();
            value = ParseExpr();
        }
        auto var = std::make_unique<VarNode>(name.line, name.column, name.text);
        if (isLocal)
            scopes_.DeclareLocal(*var);
        else
            scopes_.DeclareGlobal(*var);
        node->variables.push_back(std::move(var));
        node->values.push_back(std::move(value));
        if (!At(TokenKind::Comma)) return node;
        Next();
    }
}

NodePtr Parser::ParseTry() {
    const Token& start = Next();
    auto node = std::make_unique<TryNode>(start.line, start.column);
    SkipNewlines();
    node->body = ParseExpr();
    SkipNewlines();
    ExpectKeyword(L"catch");
    SkipNewlines();
    node->handler = ParseExpr();
    return node;
}

NodePtr Parser::ParseContext() {
    if (AtKeyword(L"with")) {
        Next();
        if (!AtKeyword(L"undo") && !AtKeyword(L"animate"))
            Fail(Peek(), L"expected \"undo\" or \"animate\" after \"with\"");
    }
    const Token& start = Next();
    using Kind = ContextNode::Kind;
    const Kind kind = start.text == L"undo"      ? Kind::Undo
                      : start.text == L"animate" ? Kind::Animate
                                                 : Kind::AtTime;
    auto node = std::make_unique<ContextNode>(start.line, start.column, kind);
    if (kind == Kind::AtTime) {
        const Token& time = Expect(TokenKind::Identifier, L"\"time\"");
        if (time.text != L"time") Fail(time, L"expected \"time\", got " + Describe(time));
    }
    Value flag;
    if (kind == Kind::Undo && !KeywordLiteral(Peek(), flag)) node->undoName = ParsePrimary();
    // Only a primary for on/off, so that `on()` is the switch and an empty body.
    node->setting = kind == Kind::AtTime ? ParseOperand() : ParsePrimary();
    SkipNewlines();
    node->body = ParseExpr();
    return node;
}

}  // namespace host::script
