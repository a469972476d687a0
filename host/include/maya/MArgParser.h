#pragma once
// MArgParser: a command line read against a syntax, answering which flags were given, their
// arguments, the command arguments and the objects. Flags are named by short or long name, with or
// without the dash. A line the syntax does not accept fails the constructor and logs the reason.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <memory>

class MArgList;
class MString;
class MStringArray;
class MSyntax;

namespace mhost {
struct ParsedArgs;
}

class OPENMAYA_EXPORT MArgParser {
public:
    // A parser that holds no line: no flag is set, every argument read fails.
    MArgParser();
    // Reads `argList` with `syntax`; kInvalidParameter (and an error line in the log) when the
    // syntax does not accept it.
    MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = nullptr);
    virtual ~MArgParser();
    // Whether the flag was given; kInvalidParameter for a flag that the syntax does not declare.
    bool isFlagSet(const char* flag, MStatus* ReturnStatus = nullptr) const;
    bool isEdit(MStatus* ReturnStatus = nullptr) const;
    bool isQuery(MStatus* ReturnStatus = nullptr) const;
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char* flag) const;
    // Argument `index` of the flag's first use, converted to the requested type (booleans read as
    // 0/1, reals as ints by truncation). kInvalidParameter when the flag was not given, the index is
    // out of range or the argument has no such reading; `result` is then left alone.
    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    // The arguments of the flag's use number `i` (0 = first) of a multi-use flag.
    MStatus getFlagArgumentList(const char* flag, unsigned int i, MArgList& args) const;
    // Command argument `index`, converted as getFlagArgument converts.
    MStatus getCommandArgument(unsigned int index, bool& result) const;
    MStatus getCommandArgument(unsigned int index, int& result) const;
    MStatus getCommandArgument(unsigned int index, double& result) const;
    MStatus getCommandArgument(unsigned int index, MString& result) const;
    // The objects of the line (or the selection, where the syntax says so) by name.
    MStatus getObjects(MStringArray& result) const;
    static const char* className();

private:
    // Host side: the line as read, shared between copies.
    std::shared_ptr<const mhost::ParsedArgs> fParsed;
};
