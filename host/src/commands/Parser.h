#pragma once
// Reads script text into statements. The language: a command name followed by arguments (words,
// quoted strings, backquoted scripts whose result becomes arguments), statements separated by ';'
// (the last one may go without), empty statements, and
//     if (`script`) { statements } else { statements }
// where the condition is a backquoted script or a number and the else part is optional.
// The whole text is read before anything runs, so a syntax error anywhere runs nothing.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "commands/ArgValue.h"

namespace mhost {

struct Script;

// One argument as written: a literal value, or a backquoted script whose result is substituted.
struct Argument {
    std::optional<ArgValue> literal;
    std::shared_ptr<const Script> substitution;
};

struct Statement {
    enum class Kind { kCommand, kIf };
    Kind kind = Kind::kCommand;
    // kCommand: the command's name, its arguments, and the statement as written (journal text).
    std::string name;
    std::vector<Argument> arguments;
    std::string text;
    // kIf: the condition and the two branches (the else branch may be empty).
    Argument condition;
    std::vector<Statement> thenBranch;
    std::vector<Statement> elseBranch;
};

struct Script {
    std::vector<Statement> statements;
};

// Throws ScriptSyntaxError with the line to log when the text is not a valid script.
Script parseScript(const std::string& text);

}  // namespace mhost
