#pragma once
// Reads a command's argument list against its syntax: flags with their typed arguments, query and
// edit mode, command arguments and objects. The interpreter uses it to check a line before doIt;
// MArgParser and MArgDatabase use it to answer a command's questions about its line.
//
// Rules: flags may stand anywhere; in query mode they take no arguments. A flag takes the next words
// as its arguments whatever they look like. The words that are not flags or flag arguments go first
// to the command arguments, in order, then to the objects.

#include <maya/MStatus.h>

#include <functional>
#include <string>
#include <vector>

#include "commands/ArgValue.h"
#include "commands/SyntaxData.h"

namespace mhost {

struct FlagUse {
    size_t flag;                   // index into the syntax's flags
    std::vector<ArgValue> values;  // converted to the declared types
    unsigned int position;         // index of the flag in the argument list
};

struct ParsedArgs {
    SyntaxData syntax;  // the syntax the line was read with
    std::vector<FlagUse> uses;
    std::vector<ArgValue> commandArgs;
    std::vector<std::string> objects;
    bool query = false;
    bool edit = false;

    // The uses of a flag named by its short or long name (dash optional), in line order.
    std::vector<const FlagUse*> usesOf(const std::string& flag) const;
};

// Reads `args` into `parsed`. kInvalidParameter on a line the syntax does not accept, with the
// reason in `error` ("Invalid flag: -x", "Too many objects or values.", ...).
MStatus parseArguments(const SyntaxData& syntax, const std::vector<ArgValue>& args, ParsedArgs& parsed,
                       std::string& error);

// Supplies the active selection's names for syntaxes that use the selection as default objects.
using SelectionSource = std::function<std::vector<std::string>()>;
void setSelectionSource(SelectionSource source);

}  // namespace mhost
