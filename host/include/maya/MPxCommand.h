#pragma once
// MPxCommand: the base of a plug-in's script command. The host makes a new instance for each call,
// runs doIt with the call's arguments, and keeps the instance on the undo queue when isUndoable()
// answers true right after a successful doIt. The static result functions act on the result of the
// command that is running.

#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

#include <memory>

class MArgList;
class MDoubleArray;
class MIntArray;
class MStringArray;
class MSyntax;

namespace mhost {
struct CommandAccess;
struct SyntaxData;
}  // namespace mhost

class OPENMAYA_EXPORT MPxCommand {
public:
    MPxCommand();
    virtual ~MPxCommand();
    // The command's work. The base versions do nothing and succeed.
    virtual MStatus doIt(const MArgList& args);
    virtual MStatus undoIt();
    virtual MStatus redoIt();
    // Asked right after a successful doIt; the base answers false.
    virtual bool isUndoable() const;
    // Whether the arguments are checked against the registered syntax before doIt; the base answers
    // true (a command registered without a syntax function is never checked).
    virtual bool hasSyntax() const;
    // The syntax the command was registered with; empty when it has none.
    MSyntax syntax() const;
    // Whether the command is marked as one to keep in the history (off until setHistoryOn).
    bool isHistoryOn() const;
    // The text recorded for the command by setCommandString.
    MString commandString() const;
    MStatus setHistoryOn(bool state);
    MStatus setCommandString(const MString&);
    // Messages to the host's log (the Script Editor in Maya). showLineNumber has no effect here.
    static void displayInfo(const MString& theInfo);
    static void displayWarning(const MString& theWarning, bool showLineNumber = false);
    static void displayError(const MString& theError, bool showLineNumber = false);

    enum MResultType { kLong, kDouble, kString, kNoArg };

    // Set replaces the running command's result; booleans and unsigned values become ints.
    static void clearResult();
    static void setResult(unsigned int val);
    static void setResult(int val);
    static void setResult(double val);
    static void setResult(bool val);
    static void setResult(const char* val);
    static void setResult(const MString& val);
    static void setResult(const MIntArray& val);
    static void setResult(const MDoubleArray& val);
    static void setResult(const MStringArray& val);
    // Append makes the result an array and adds to it; a value of another element type than the
    // result's starts a new array.
    static void appendToResult(int val);
    static void appendToResult(double val);
    static void appendToResult(bool val);
    static void appendToResult(const char* val);
    static void appendToResult(const MString& val);
    static void appendToResult(const MStringArray& val);
    static bool isCurrentResultArray();
    // The element type of the running command's result; kNoArg when it has none.
    static MResultType currentResultType();
    // Read the running command's result, converting between types as scripts do. A scalar reading
    // of an array takes its first element; kFailure when there is no result (or an empty array).
    static MStatus getCurrentResult(int& val);
    static MStatus getCurrentResult(double& val);
    static MStatus getCurrentResult(MString& val);
    static MStatus getCurrentResult(MIntArray& val);
    static MStatus getCurrentResult(MDoubleArray& val);
    static MStatus getCurrentResult(MStringArray& val);
    static int currentIntResult(MStatus* ReturnStatus = nullptr);
    static double currentDoubleResult(MStatus* ReturnStatus = nullptr);
    static MString currentStringResult(MStatus* ReturnStatus = nullptr);
    static const char* className();
    // No effect: undoability is what isUndoable() answers.
    [[deprecated("Has no effect any more on the undoability of a command.")]] MStatus setUndoable(bool state);

private:
    friend struct mhost::CommandAccess;

    std::shared_ptr<mhost::SyntaxData> fSyntax;
    MString fCommandString;
    bool fHistoryOn;
};
