#pragma once
// Splits script text into tokens: words, double-quoted strings (escapes \" \\ \n \t \r; any other
// backslash is kept as written), backquoted scripts, and the punctuation ; ( ) { }.
//
// A lone "-" followed by a word is read as the one word "-word": the plug-in writes some flags with a
// blank after the dash ("- am 1"), and this reading gives them the meaning the writer intended.

#include <cstddef>
#include <string>
#include <vector>

#include "core/ApiObject.h"

namespace mhost {

// A script that cannot be read; the message is the line that the log shows.
class ScriptSyntaxError : public HostError {
public:
    using HostError::HostError;
};

struct Token {
    enum class Type {
        kWord,
        kString,
        kBackquote,
        kSemicolon,
        kOpenParen,
        kCloseParen,
        kOpenBrace,
        kCloseBrace,
        kEnd
    };
    Type type;
    std::string text;  // a word, a string's contents after escapes, or a backquoted script
    size_t begin;      // span of the token in the script text
    size_t end;
};

// The tokens of `text`, ending with a kEnd token. Throws ScriptSyntaxError on an unterminated string
// or backquote, or a lone "-" that no word follows.
std::vector<Token> tokenize(const std::string& text);

}  // namespace mhost
