// MGlobal's command, option variable and message functions.

#include <maya/MDoubleArray.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MStringArray.h>

#include "commands/MessageLog.h"
#include "commands/OptionVars.h"
#include "commands/ScriptRunner.h"

namespace {

// Runs the text, first echoing it to the log when display is on.
MStatus run(const MString& command, mhost::CommandResult& result, bool displayEnabled, bool undoEnabled) {
    if (displayEnabled) mhost::messageLog().output(std::string(command.asChar()) + "\n");
    return mhost::runScript(command.asChar(), result, undoEnabled);
}

template <class T>
T firstOr(const std::vector<T>& values, T fallback) {
    return values.empty() ? fallback : values.front();
}

template <class Array, class T>
void assign(Array& array, const std::vector<T>& values) {
    array.clear();
    for (const T& value : values) array.append(value);
}

// The variable's value read with `read`, or `fallback` when it does not exist.
template <class T, class Read>
T readOptionVar(const MString& name, bool* exists, T fallback, Read read) {
    const mhost::CommandResult* value = mhost::optionVars().find(name.asChar());
    if (exists) *exists = value != nullptr;
    return value ? read(*value) : fallback;
}

template <class T>
bool setOptionVar(const MString& name, const T& value) {
    if (name.length() == 0) return false;
    mhost::CommandResult stored;
    stored.set(value);
    mhost::optionVars().set(name.asChar(), stored);
    return true;
}

}  // namespace

MStatus MGlobal::executeCommand(const MString& command, bool displayEnabled, bool undoEnabled) {
    mhost::CommandResult ignored;
    return run(command, ignored, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, int& result, bool displayEnabled, bool undoEnabled) {
    mhost::CommandResult value;
    const MStatus status = run(command, value, displayEnabled, undoEnabled);
    if (status) result = firstOr(value.asInts(), 0);
    return status;
}

MStatus MGlobal::executeCommand(const MString& command, MIntArray& result, bool displayEnabled,
                                bool undoEnabled) {
    mhost::CommandResult value;
    const MStatus status = run(command, value, displayEnabled, undoEnabled);
    if (status) assign(result, value.asInts());
    return status;
}

MStatus MGlobal::executeCommand(const MString& command, double& result, bool displayEnabled,
                                bool undoEnabled) {
    mhost::CommandResult value;
    const MStatus status = run(command, value, displayEnabled, undoEnabled);
    if (status) result = firstOr(value.asDoubles(), 0.0);
    return status;
}

MStatus MGlobal::executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled,
                                bool undoEnabled) {
    mhost::CommandResult value;
    const MStatus status = run(command, value, displayEnabled, undoEnabled);
    if (status) assign(result, value.asDoubles());
    return status;
}

MStatus MGlobal::executeCommand(const MString& command, MStringArray& result, bool displayEnabled,
                                bool undoEnabled) {
    mhost::CommandResult value;
    const MStatus status = run(command, value, displayEnabled, undoEnabled);
    if (!status) return status;
    result.clear();
    for (const std::string& text : value.asStrings()) result.append(text.c_str());
    return status;
}

MString MGlobal::executeCommandStringResult(const MString& command, bool displayEnabled, bool undoEnabled,
                                            MStatus* ResultStatus) {
    MString text;
    const MStatus status = executeCommand(command, text, displayEnabled, undoEnabled);
    if (ResultStatus) *ResultStatus = status;
    return text;
}

MStatus MGlobal::executeCommand(const MString& command, MString& result, bool displayEnabled,
                                bool undoEnabled) {
    mhost::CommandResult value;
    const MStatus status = run(command, value, displayEnabled, undoEnabled);
    if (status) result = value.asText().c_str();
    return status;
}

void MGlobal::displayInfo(const MString& theMessage) { mhost::messageLog().info(theMessage.asChar()); }
void MGlobal::displayWarning(const MString& theWarning) { mhost::messageLog().warning(theWarning.asChar()); }
void MGlobal::displayError(const MString& theError) { mhost::messageLog().error(theError.asChar()); }

int MGlobal::optionVarIntValue(const MString& name, bool* exists) {
    return readOptionVar(name, exists, 0,
                         [](const mhost::CommandResult& v) { return firstOr(v.asInts(), 0); });
}

double MGlobal::optionVarDoubleValue(const MString& name, bool* exists) {
    return readOptionVar(name, exists, 0.0,
                         [](const mhost::CommandResult& v) { return firstOr(v.asDoubles(), 0.0); });
}

MString MGlobal::optionVarStringValue(const MString& name, bool* exists) {
    return readOptionVar(name, exists, MString(),
                         [](const mhost::CommandResult& v) { return MString(v.asText().c_str()); });
}

bool MGlobal::setOptionVarValue(const MString& name, int value) { return setOptionVar(name, value); }
bool MGlobal::setOptionVarValue(const MString& name, double value) { return setOptionVar(name, value); }
bool MGlobal::setOptionVarValue(const MString& name, MString value) {
    return setOptionVar(name, std::string(value.asChar()));
}

void MGlobal::removeOptionVar(const MString& name) { mhost::optionVars().remove(name.asChar()); }
bool MGlobal::optionVarExists(const MString& name) { return mhost::optionVars().exists(name.asChar()); }
