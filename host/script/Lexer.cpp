#include "host/script/Lexer.h"

#include <algorithm>
#include <cerrno>
#include <cwchar>
#include <cwctype>

#include "host/script/SyntaxError.h"

namespace host::script {

namespace {

// Reserved words, in lower case: identifiers are folded before the test.
constexpr const wchar_t* kKeywords[] = {
    L"and",      L"or",     L"not",  L"if",        L"then",  L"else",    L"do",
    L"while",    L"for",    L"in",   L"to",        L"by",    L"collect", L"fn",
    L"function", L"return", L"exit", L"continue",  L"local", L"global",  L"try",
    L"catch",    L"throw",  L"undo", L"animate",   L"at",    L"with",    L"true",
    L"false",    L"on",     L"off",  L"undefined", L"ok",
};

bool IsKeyword(const std::wstring& word) {
    return std::any_of(std::begin(kKeywords), std::end(kKeywords),
                       [&](const wchar_t* k) { return word == k; });
}

bool IsWordStart(wchar_t c) {
    return c == L'_' || (c < 128 ? std::iswalpha(wint_t(c)) != 0 : std::iswalnum(wint_t(c)) != 0);
}
bool IsWordChar(wchar_t c) {
    return IsWordStart(c) || (c >= L'0' && c <= L'9');
}
bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

// Two-character operators first, so that `+=` is not read as `+` then `=`.
constexpr const wchar_t* kOperators[] = {L"==", L"!=", L"<=", L">=", L"+=", L"-=", L"*=", L"/=",
                                         L"+",  L"-",  L"*",  L"/",  L"^",  L"<",  L">",  L"="};

// The escapes of a string literal: the character after the backslash, and its meaning.
struct Escape {
    wchar_t written;
    wchar_t meant;
};
constexpr Escape kEscapes[] = {
    {L'n', L'\n'}, {L't', L'\t'}, {L'r', L'\r'}, {L'"', L'"'}, {L'\\', L'\\'}};

}  // namespace

void Lexer::Advance(size_t n) {
    for (size_t i = 0; i < n && pos_ < text_.size(); ++i, ++pos_) {
        if (text_[pos_] == L'\n') {
            ++line_;
            column_ = 1;
        } else {
            ++column_;
        }
    }
}

void Lexer::Fail(const std::wstring& message) const {
    throw SyntaxError{message, line_, column_};
}

void Lexer::FailAt(const Token& at, const std::wstring& message) const {
    throw SyntaxError{message, at.line, at.column};
}

bool Lexer::SkipSpace() {
    bool newline = false;
    for (;;) {
        const wchar_t c = Peek();
        if (c == L'\n') {
            newline = true;
            Advance();
        } else if (c == L' ' || c == L'\t' || c == L'\r' || c == L'\f' || c == L'\v') {
            Advance();
        } else if (c == L'-' && Peek(1) == L'-') {
            while (pos_ < text_.size() && Peek() != L'\n') Advance();
        } else if (c == L'/' && Peek(1) == L'*') {
            const size_t end = text_.find(L"*/", pos_ + 2);
            if (end == std::wstring_view::npos) Fail(L"unterminated comment");
            Advance(end + 2 - pos_);
        } else if (c == L'\\' && (Peek(1) == L'\n' || (Peek(1) == L'\r' && Peek(2) == L'\n'))) {
            Advance(Peek(1) == L'\r' ? 3 : 2);  // the expression goes on on the next line
        } else {
            return newline;
        }
    }
}

void Lexer::Push(Token token) {
    const bool separator = token.kind == TokenKind::Newline;
    if (separator && (tokens_.empty() || tokens_.back().kind == TokenKind::Newline)) return;
    tokens_.push_back(std::move(token));
}

std::vector<Token> Lexer::Tokenize() {
    for (;;) {
        const size_t before = pos_;
        const bool newline = SkipSpace();
        if (newline) {
            Token t;
            t.kind = TokenKind::Newline;
            t.line = line_;
            t.column = column_;
            Push(std::move(t));
        }
        Token token;
        token.line = line_;
        token.column = column_;
        token.spaceBefore = pos_ != before || pos_ == 0 || newline;
        const wchar_t c = Peek();
        if (c == L'\0' && pos_ >= text_.size()) {
            token.kind = TokenKind::End;
            tokens_.push_back(std::move(token));
            return std::move(tokens_);
        }
        if (IsDigit(c) || (c == L'.' && IsDigit(Peek(1)))) {
            LexNumber(token);
        } else if (c == L'"') {
            LexString(token);
        } else if (c == L'@' && Peek(1) == L'"') {
            LexVerbatim(token);
        } else if (IsWordStart(c)) {
            token.text = LexWord();
            token.kind = IsKeyword(token.text) ? TokenKind::Keyword : TokenKind::Identifier;
        } else if (c == L'#' && Peek(1) == L'(') {
            token.kind = TokenKind::ArrayOpen;
            Advance(2);
        } else if (c == L'#' && IsWordStart(Peek(1))) {
            Advance();
            token.kind = TokenKind::Name;
            while (IsWordChar(Peek())) {  // names keep their spelling
                token.text += Peek();
                Advance();
            }
        } else if (c == L'$') {
            LexNodePath(token);
        } else {
            LexOperator(token);
        }
        Push(std::move(token));
    }
}

void Lexer::LexNumber(Token& token) {
    const size_t start = pos_;
    bool isFloat = false;
    if (Peek() == L'0' && (Peek(1) == L'x' || Peek(1) == L'X')) {
        Advance(2);
        while (std::iswxdigit(wint_t(Peek()))) Advance();
        const std::wstring digits(text_.substr(start + 2, pos_ - start - 2));
        if (digits.empty()) Fail(L"hexadecimal number without digits");
        errno = 0;
        token.kind = TokenKind::Integer;
        token.integer = static_cast<long long>(std::wcstoull(digits.c_str(), nullptr, 16));
        if (errno == ERANGE) Fail(L"number too big");
        return;
    }
    while (IsDigit(Peek())) Advance();
    if (Peek() == L'.' && !IsWordStart(Peek(1))) {
        isFloat = true;
        Advance();
        while (IsDigit(Peek())) Advance();
    }
    if ((Peek() == L'e' || Peek() == L'E') &&
        (IsDigit(Peek(1)) || ((Peek(1) == L'-' || Peek(1) == L'+') && IsDigit(Peek(2))))) {
        isFloat = true;
        Advance(2);
        while (IsDigit(Peek())) Advance();
    }
    const std::wstring literal(text_.substr(start, pos_ - start));
    errno = 0;
    if (!isFloat) {
        token.integer = std::wcstoll(literal.c_str(), nullptr, 10);
        if (errno != ERANGE) {
            token.kind = TokenKind::Integer;
            return;
        }
    }
    token.kind = TokenKind::Float;
    token.number = std::wcstod(literal.c_str(), nullptr);
}

void Lexer::LexString(Token& token) {
    token.kind = TokenKind::String;
    Advance();
    for (;;) {
        const wchar_t c = Peek();
        if (pos_ >= text_.size()) FailAt(token, L"unterminated string");
        Token backslash;
        backslash.line = line_;
        backslash.column = column_;
        Advance();
        if (c == L'"') return;
        if (c != L'\\') {
            token.text += c;
            continue;
        }
        const wchar_t e = Peek();
        if (pos_ >= text_.size()) FailAt(token, L"unterminated string");
        Advance();
        // `\%` is kept as written: format reads it as a percent sign, not a placeholder.
        if (e == L'%') {
            token.text += L"\\%";
            continue;
        }
        const auto escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                         [e](const Escape& x) { return x.written == e; });
        if (escape == std::end(kEscapes))
            FailAt(backslash, std::wstring(L"unknown escape \\") + e + L" in string");
        token.text += escape->meant;
    }
}

void Lexer::LexVerbatim(Token& token) {
    token.kind = TokenKind::String;
    Advance(2);
    const size_t end = text_.find(L'"', pos_);
    if (end == std::wstring_view::npos) FailAt(token, L"unterminated string");
    token.text = std::wstring(text_.substr(pos_, end - pos_));
    Advance(end + 1 - pos_);
}

std::wstring Lexer::LexWord() {
    std::wstring word;
    while (IsWordChar(Peek())) {
        word += wchar_t(std::towlower(wint_t(Peek())));
        Advance();
    }
    return word;
}

void Lexer::LexNodePath(Token& token) {
    token.kind = TokenKind::NodePath;
    Advance();
    if (Peek() == L'\'') {  // $'name with blanks'
        Advance();
        const size_t end = text_.find(L'\'', pos_);
        if (end == std::wstring_view::npos) Fail(L"unterminated node name");
        token.text = std::wstring(text_.substr(pos_, end - pos_));
        Advance(end + 1 - pos_);
        return;
    }
    while (IsWordChar(Peek())) {  // node names keep their case
        token.text += Peek();
        Advance();
    }
    if (token.text.empty()) Fail(L"node name expected after $");
}

void Lexer::LexOperator(Token& token) {
    struct Single {
        wchar_t c;
        TokenKind kind;
    };
    static constexpr Single kSingles[] = {{L'(', TokenKind::LParen},   {L')', TokenKind::RParen},
                                          {L'[', TokenKind::LBracket}, {L']', TokenKind::RBracket},
                                          {L',', TokenKind::Comma},    {L'.', TokenKind::Dot},
                                          {L':', TokenKind::Colon},    {L';', TokenKind::Newline}};
    const wchar_t c = Peek();
    for (const Single& s : kSingles) {
        if (s.c != c) continue;
        token.kind = s.kind;
        Advance();
        return;
    }
    for (const wchar_t* op : kOperators) {
        const size_t n = std::wcslen(op);
        if (text_.substr(pos_, n) != op) continue;
        token.kind = TokenKind::Operator;
        token.text = op;
        Advance(n);
        return;
    }
    Fail(std::wstring(L"unexpected character '") + c + L"'");
}

}  // namespace host::script
