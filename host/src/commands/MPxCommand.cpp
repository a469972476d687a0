#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include "commands/CommandResult.h"
#include "commands/MessageLog.h"
#include "commands/SyntaxData.h"

namespace {

mhost::CommandResult& result() { return mhost::currentResult(); }

template <class Array, class T>
std::vector<T> elementsOf(const Array& array) {
    std::vector<T> values;
    values.reserve(array.length());
    for (unsigned int i = 0; i < array.length(); ++i) values.push_back(array[i]);
    return values;
}

std::vector<std::string> stringsOf(const MStringArray& array) {
    std::vector<std::string> values;
    for (unsigned int i = 0; i < array.length(); ++i) values.push_back(array[i].asChar());
    return values;
}

// Reads the first element of the current result; kFailure when it has none.
template <class T>
MStatus firstOf(const std::vector<T>& values, T& val) {
    if (values.empty()) return MS::kFailure;
    val = values.front();
    return MS::kSuccess;
}

// Fills an API array with the current result's elements; kFailure when there is no result.
template <class Array, class T>
MStatus fill(const std::vector<T>& values, Array& val) {
    if (result().kind() == mhost::CommandResult::Kind::kNone) return MS::kFailure;
    val.clear();
    for (const T& value : values) val.append(value);
    return MS::kSuccess;
}

void report(MStatus* status, MStatus value) {
    if (status) *status = value;
}

}  // namespace

MPxCommand::MPxCommand() : fHistoryOn(false) {}
MPxCommand::~MPxCommand() = default;

MStatus MPxCommand::doIt(const MArgList&) { return MS::kSuccess; }
MStatus MPxCommand::undoIt() { return MS::kSuccess; }
MStatus MPxCommand::redoIt() { return MS::kSuccess; }
bool MPxCommand::isUndoable() const { return false; }
bool MPxCommand::hasSyntax() const { return true; }
MSyntax MPxCommand::syntax() const { return fSyntax ? MSyntax(fSyntax) : MSyntax(); }
bool MPxCommand::isHistoryOn() const { return fHistoryOn; }
MString MPxCommand::commandString() const { return fCommandString; }

MStatus MPxCommand::setHistoryOn(bool state) {
    fHistoryOn = state;
    return MS::kSuccess;
}

MStatus MPxCommand::setCommandString(const MString& text) {
    fCommandString = text;
    return MS::kSuccess;
}

void MPxCommand::displayInfo(const MString& theInfo) { mhost::messageLog().info(theInfo.asChar()); }
void MPxCommand::displayWarning(const MString& theWarning, bool) {
    mhost::messageLog().warning(theWarning.asChar());
}
void MPxCommand::displayError(const MString& theError, bool) { mhost::messageLog().error(theError.asChar()); }

void MPxCommand::clearResult() { result().clear(); }
void MPxCommand::setResult(unsigned int val) { result().set(static_cast<int>(val)); }
void MPxCommand::setResult(int val) { result().set(val); }
void MPxCommand::setResult(double val) { result().set(val); }
void MPxCommand::setResult(bool val) { result().set(val ? 1 : 0); }
void MPxCommand::setResult(const char* val) { result().set(std::string(val ? val : "")); }
void MPxCommand::setResult(const MString& val) { result().set(std::string(val.asChar())); }
void MPxCommand::setResult(const MIntArray& val) { result().set(elementsOf<MIntArray, int>(val)); }
void MPxCommand::setResult(const MDoubleArray& val) { result().set(elementsOf<MDoubleArray, double>(val)); }
void MPxCommand::setResult(const MStringArray& val) { result().set(stringsOf(val)); }

void MPxCommand::appendToResult(int val) { result().append(val); }
void MPxCommand::appendToResult(double val) { result().append(val); }
void MPxCommand::appendToResult(bool val) { result().append(val ? 1 : 0); }
void MPxCommand::appendToResult(const char* val) { result().append(std::string(val ? val : "")); }
void MPxCommand::appendToResult(const MString& val) { result().append(std::string(val.asChar())); }

void MPxCommand::appendToResult(const MStringArray& val) {
    for (unsigned int i = 0; i < val.length(); ++i) result().append(std::string(val[i].asChar()));
}

bool MPxCommand::isCurrentResultArray() { return result().isArray(); }

MPxCommand::MResultType MPxCommand::currentResultType() {
    switch (result().kind()) {
        case mhost::CommandResult::Kind::kInt:
        case mhost::CommandResult::Kind::kIntArray:
            return kLong;
        case mhost::CommandResult::Kind::kDouble:
        case mhost::CommandResult::Kind::kDoubleArray:
            return kDouble;
        case mhost::CommandResult::Kind::kString:
        case mhost::CommandResult::Kind::kStringArray:
            return kString;
        case mhost::CommandResult::Kind::kNone:
            break;
    }
    return kNoArg;
}

MStatus MPxCommand::getCurrentResult(int& val) { return firstOf(result().asInts(), val); }
MStatus MPxCommand::getCurrentResult(double& val) { return firstOf(result().asDoubles(), val); }

MStatus MPxCommand::getCurrentResult(MString& val) {
    std::string text;
    const MStatus status = firstOf(result().asStrings(), text);
    if (status) val = text.c_str();
    return status;
}

MStatus MPxCommand::getCurrentResult(MIntArray& val) { return fill(result().asInts(), val); }
MStatus MPxCommand::getCurrentResult(MDoubleArray& val) { return fill(result().asDoubles(), val); }

MStatus MPxCommand::getCurrentResult(MStringArray& val) {
    std::vector<MString> texts;
    for (const std::string& text : result().asStrings()) texts.emplace_back(text.c_str());
    return fill(texts, val);
}

int MPxCommand::currentIntResult(MStatus* ReturnStatus) {
    int value = 0;
    report(ReturnStatus, getCurrentResult(value));
    return value;
}

double MPxCommand::currentDoubleResult(MStatus* ReturnStatus) {
    double value = 0;
    report(ReturnStatus, getCurrentResult(value));
    return value;
}

MString MPxCommand::currentStringResult(MStatus* ReturnStatus) {
    MString value;
    report(ReturnStatus, getCurrentResult(value));
    return value;
}

const char* MPxCommand::className() { return "MPxCommand"; }
MStatus MPxCommand::setUndoable(bool) { return MS::kSuccess; }
