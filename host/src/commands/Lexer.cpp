#include "commands/Lexer.h"

#include <cctype>
#include <cstring>

namespace mhost {
namespace {

class Lexer {
public:
    explicit Lexer(const std::string& text) : fText(text) {}

    std::vector<Token> run() {
        std::vector<Token> tokens;
        for (skipBlanks(); fAt < fText.size(); skipBlanks()) tokens.push_back(next());
        tokens.push_back({Token::Type::kEnd, "", fText.size(), fText.size()});
        return tokens;
    }

private:
    static bool isPunctuation(char c) { return std::strchr(";(){}\"`", c) != nullptr; }
    bool atWordChar() const {
        return fAt < fText.size() && !std::isspace(static_cast<unsigned char>(fText[fAt])) &&
               !isPunctuation(fText[fAt]);
    }

    void skipBlanks() {
        while (fAt < fText.size() && std::isspace(static_cast<unsigned char>(fText[fAt]))) ++fAt;
    }

    Token next() {
        const size_t begin = fAt;
        switch (fText[fAt]) {
            case ';':
                return punctuation(Token::Type::kSemicolon);
            case '(':
                return punctuation(Token::Type::kOpenParen);
            case ')':
                return punctuation(Token::Type::kCloseParen);
            case '{':
                return punctuation(Token::Type::kOpenBrace);
            case '}':
                return punctuation(Token::Type::kCloseBrace);
            case '"':
                return {Token::Type::kString, quoted(), begin, fAt};
            case '`':
                return {Token::Type::kBackquote, backquoted(), begin, fAt};
            default:
                return {Token::Type::kWord, word(), begin, fAt};
        }
    }

    Token punctuation(Token::Type type) {
        ++fAt;
        return {type, fText.substr(fAt - 1, 1), fAt - 1, fAt};
    }

    std::string readWord() {
        const size_t begin = fAt;
        while (atWordChar()) ++fAt;
        return fText.substr(begin, fAt - begin);
    }

    std::string word() {
        std::string text = readWord();
        if (text != "-") return text;
        skipBlanks();
        const std::string name = readWord();
        if (name.empty()) throw ScriptSyntaxError("Syntax error: '-' is not followed by a flag name");
        return text + name;
    }

    std::string quoted() {
        std::string text;
        for (++fAt; fAt < fText.size() && fText[fAt] != '"'; ++fAt) {
            if (fText[fAt] == '\\' && fAt + 1 < fText.size()) {
                text += escaped(fText[++fAt]);
            } else {
                text += fText[fAt];
            }
        }
        if (fAt >= fText.size()) throw ScriptSyntaxError("Syntax error: unterminated string");
        ++fAt;
        return text;
    }

    static std::string escaped(char c) {
        switch (c) {
            case 'n':
                return "\n";
            case 't':
                return "\t";
            case 'r':
                return "\r";
            case '"':
                return "\"";
            case '\\':
                return "\\";
            default:
                return std::string("\\") + c;
        }
    }

    std::string backquoted() {
        const size_t close = fText.find('`', fAt + 1);
        if (close == std::string::npos) throw ScriptSyntaxError("Syntax error: unterminated backquote");
        std::string inner = fText.substr(fAt + 1, close - fAt - 1);
        fAt = close + 1;
        return inner;
    }

    const std::string& fText;
    size_t fAt = 0;
};

}  // namespace

std::vector<Token> tokenize(const std::string& text) { return Lexer(text).run(); }

}  // namespace mhost
