#pragma once

#include <string>

namespace host::script {

enum class TokenKind {
    End,
    Newline,  // also ';'
    Identifier,
    Keyword,
    Integer,
    Float,
    String,
    Name,       // #foo
    NodePath,   // $foo
    ArrayOpen,  // #(
    LParen,
    RParen,
    LBracket,
    RBracket,
    Comma,
    Dot,
    Colon,
    Operator,  // + - * / ^ == != < > <= >= = += -= *= /=
};

// One token with where it starts (1-based line and column). Identifiers and keywords
// are folded to lower case; text holds the string's contents for strings, the name for
// names and node paths, the operator's characters for operators.
struct Token {
    TokenKind kind = TokenKind::End;
    std::wstring text;
    long long integer = 0;
    double number = 0.0;
    int line = 1;
    int column = 1;
    bool spaceBefore = false;  // blank or line start before it: `f [1,2]` against `a[1]`

    bool Is(TokenKind k, const wchar_t* t) const { return kind == k && text == t; }
    bool IsKeyword(const wchar_t* t) const { return Is(TokenKind::Keyword, t); }
    bool IsOperator(const wchar_t* t) const { return Is(TokenKind::Operator, t); }
};

}  // namespace host::script
