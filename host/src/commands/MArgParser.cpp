#include <maya/MArgList.h>
#include <maya/MArgParser.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include <climits>

#include "commands/ArgumentParser.h"
#include "commands/MessageLog.h"

namespace {

void report(MStatus* status, MStatus value) {
    if (status) *status = value;
}

const mhost::ArgValue* flagArgument(const mhost::ParsedArgs& parsed, const char* flag, unsigned int index) {
    if (!flag) return nullptr;
    const std::vector<const mhost::FlagUse*> uses = parsed.usesOf(flag);
    if (uses.empty() || index >= uses.front()->values.size()) return nullptr;
    return &uses.front()->values[index];
}

const mhost::ArgValue* commandArgument(const mhost::ParsedArgs& parsed, unsigned int index) {
    return index < parsed.commandArgs.size() ? &parsed.commandArgs[index] : nullptr;
}

// The readings of one argument into each result type; false when it has none.
bool read(const mhost::ArgValue& value, bool& result) { return value.toBool(result); }
bool read(const mhost::ArgValue& value, int& result) { return value.toInt(result); }
bool read(const mhost::ArgValue& value, double& result) { return value.toDouble(result); }

bool read(const mhost::ArgValue& value, MString& result) {
    result = value.text().c_str();
    return true;
}

bool read(const mhost::ArgValue& value, unsigned int& result) {
    int signedValue = 0;
    if (!value.toInt(signedValue) || signedValue < 0) return false;
    result = static_cast<unsigned int>(signedValue);
    return true;
}

template <class T>
MStatus readInto(const mhost::ArgValue* value, T& result) {
    T converted{};
    if (!value || !read(*value, converted)) return MS::kInvalidParameter;
    result = converted;
    return MS::kSuccess;
}

}  // namespace

MArgParser::MArgParser() : fParsed(std::make_shared<mhost::ParsedArgs>()) {}

MArgParser::MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus) {
    auto parsed = std::make_shared<mhost::ParsedArgs>();
    std::string error;
    const MStatus status = mhost::parseArguments(*syntax.hostData(), argList.hostArgs(), *parsed, error);
    if (!status) mhost::messageLog().error(error);
    fParsed = std::move(parsed);
    report(ReturnStatus, status);
}

MArgParser::~MArgParser() = default;

bool MArgParser::isFlagSet(const char* flag, MStatus* ReturnStatus) const {
    const bool declared = flag && fParsed->syntax.findFlag(flag);
    report(ReturnStatus, declared ? MS::kSuccess : MS::kInvalidParameter);
    return declared && !fParsed->usesOf(flag).empty();
}

bool MArgParser::isEdit(MStatus* ReturnStatus) const {
    report(ReturnStatus, MS::kSuccess);
    return fParsed->edit;
}

bool MArgParser::isQuery(MStatus* ReturnStatus) const {
    report(ReturnStatus, MS::kSuccess);
    return fParsed->query;
}

unsigned int MArgParser::numberOfFlagsUsed() const { return static_cast<unsigned int>(fParsed->uses.size()); }

unsigned int MArgParser::numberOfFlagUses(const char* flag) const {
    return flag ? static_cast<unsigned int>(fParsed->usesOf(flag).size()) : 0;
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, bool& result) const {
    return readInto(flagArgument(*fParsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, int& result) const {
    return readInto(flagArgument(*fParsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, double& result) const {
    return readInto(flagArgument(*fParsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MString& result) const {
    return readInto(flagArgument(*fParsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const {
    return readInto(flagArgument(*fParsed, flag, index), result);
}

MStatus MArgParser::getFlagArgumentList(const char* flag, unsigned int i, MArgList& args) const {
    const std::vector<const mhost::FlagUse*> uses =
        flag ? fParsed->usesOf(flag) : std::vector<const mhost::FlagUse*>();
    if (i >= uses.size()) return MS::kInvalidParameter;
    args = MArgList(uses[i]->values);
    return MS::kSuccess;
}

MStatus MArgParser::getCommandArgument(unsigned int index, bool& result) const {
    return readInto(commandArgument(*fParsed, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, int& result) const {
    return readInto(commandArgument(*fParsed, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, double& result) const {
    return readInto(commandArgument(*fParsed, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, MString& result) const {
    return readInto(commandArgument(*fParsed, index), result);
}

MStatus MArgParser::getObjects(MStringArray& result) const {
    result.clear();
    for (const std::string& object : fParsed->objects) result.append(object.c_str());
    return MS::kSuccess;
}

const char* MArgParser::className() { return "MArgParser"; }
