#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/script/Token.h"

namespace host::script {

// Splits script text into tokens. Comments (`--` to the end of the line, `/* */`) and a
// backslash before a line end are skipped; consecutive line ends and `;` give one
// Newline token. Throws SyntaxError for text that is no token.
class Lexer {
public:
    explicit Lexer(std::wstring_view text) : text_(text) {}
    std::vector<Token> Tokenize();

private:
    wchar_t Peek(size_t ahead = 0) const {
        return pos_ + ahead < text_.size() ? text_[pos_ + ahead] : L'\0';
    }
    void Advance(size_t n = 1);
    [[noreturn]] void Fail(const std::wstring& message) const;
    // An error at the start of a token rather than where reading stopped.
    [[noreturn]] void FailAt(const Token& at, const std::wstring& message) const;
    // Skips blanks and comments; true when a line end was among them.
    bool SkipSpace();
    void Push(Token token);
    void LexNumber(Token& token);
    void LexString(Token& token);
    void LexVerbatim(Token& token);
    std::wstring LexWord();
    void LexNodePath(Token& token);
    void LexOperator(Token& token);

    std::wstring_view text_;
    size_t pos_ = 0;
    int line_ = 1;
    int column_ = 1;
    std::vector<Token> tokens_;
};

}  // namespace host::script
