#include "commands/Parser.h"

#include "commands/Lexer.h"

namespace mhost {
namespace {

using Type = Token::Type;

// Command names are words that are neither numbers nor flags.
bool isCommandName(const Token& token) {
    return token.type == Type::kWord && ArgValue::fromWord(token.text).kind() == ArgValue::Kind::kString &&
           token.text[0] != '-';
}

class Parser {
public:
    explicit Parser(const std::string& text) : fText(text), fTokens(tokenize(text)) {}

    Script parseAll() {
        Script script;
        while (peek().type != Type::kEnd) parseStatementInto(script.statements);
        return script;
    }

private:
    const Token& peek() const { return fTokens[fAt]; }
    const Token& take() { return fTokens[fAt++]; }

    [[noreturn]] void unexpected(const Token& token) const {
        const std::string what = token.type == Type::kEnd
                                     ? "end of script"
                                     : "'" + fText.substr(token.begin, token.end - token.begin) + "'";
        throw ScriptSyntaxError("Syntax error: unexpected " + what);
    }

    const Token& expect(Type type) {
        if (peek().type != type) unexpected(peek());
        return take();
    }

    void parseStatementInto(std::vector<Statement>& statements) {
        const Token& first = peek();
        if (first.type == Type::kSemicolon) {
            take();
        } else if (first.type == Type::kWord && first.text == "if") {
            statements.push_back(parseIf());
        } else if (isCommandName(first)) {
            statements.push_back(parseCommand());
        } else {
            unexpected(first);
        }
    }

    Statement parseCommand() {
        Statement statement;
        const Token& name = take();
        statement.name = name.text;
        size_t end = name.end;
        for (Type type = peek().type;
             type == Type::kWord || type == Type::kString || type == Type::kBackquote; type = peek().type) {
            end = peek().end;
            statement.arguments.push_back(parseArgument(take()));
        }
        statement.text = fText.substr(name.begin, end - name.begin);
        if (peek().type == Type::kSemicolon)
            take();
        else if (peek().type != Type::kCloseBrace && peek().type != Type::kEnd)
            unexpected(peek());
        return statement;
    }

    static Argument parseArgument(const Token& token) {
        Argument argument;
        if (token.type == Type::kBackquote) {
            argument.substitution = std::make_shared<const Script>(Parser(token.text).parseAll());
        } else {
            argument.literal =
                token.type == Type::kWord ? ArgValue::fromWord(token.text) : ArgValue::fromString(token.text);
        }
        return argument;
    }

    Statement parseIf() {
        Statement statement;
        statement.kind = Statement::Kind::kIf;
        take();
        expect(Type::kOpenParen);
        statement.condition = parseCondition();
        expect(Type::kCloseParen);
        statement.thenBranch = parseBlock();
        if (peek().type == Type::kWord && peek().text == "else") {
            take();
            statement.elseBranch = parseBlock();
        }
        return statement;
    }

    Argument parseCondition() {
        const Token& token = peek();
        const bool isNumber = token.type == Type::kWord && ArgValue::fromNumberText(token.text).has_value();
        if (token.type != Type::kBackquote && !isNumber) unexpected(token);
        return parseArgument(take());
    }

    std::vector<Statement> parseBlock() {
        std::vector<Statement> statements;
        expect(Type::kOpenBrace);
        while (peek().type != Type::kCloseBrace) {
            if (peek().type == Type::kEnd) throw ScriptSyntaxError("Syntax error: missing '}'");
            parseStatementInto(statements);
        }
        take();
        return statements;
    }

    const std::string& fText;
    std::vector<Token> fTokens;
    size_t fAt = 0;
};

}  // namespace

Script parseScript(const std::string& text) { return Parser(text).parseAll(); }

}  // namespace mhost
