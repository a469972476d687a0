#pragma once
// MGlobal: application-wide services as static functions. This part runs script commands, keeps the
// option variables and writes messages to the host's log; the selection part sits beside it.

#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

class MDagPath;
class MDoubleArray;
class MObject;
class MRichSelection;
class MSelectionList;
class MIntArray;
class MStringArray;

class OPENMAYA_EXPORT MGlobal {
public:
    // How a selection change combines with the active selection.
    enum ListAdjustment { kReplaceList, kXORWithList, kAddToList, kRemoveFromList, kAddToHeadOfList };

    // The active selection: a copy of it, replaced or combined wholesale, or changed by name or by
    // object. Names are resolved as MSelectionList::add resolves them.
    static MStatus getActiveSelectionList(MSelectionList& dest, bool orderedSelectionIfAvailable = false);
    static MStatus setActiveSelectionList(const MSelectionList& src, ListAdjustment = kReplaceList);
    static MStatus getSelectionListByName(const MString& name, MSelectionList& list);
    static MStatus selectByName(const MString& name, ListAdjustment = kAddToList);
    static MStatus unselectByName(const MString& name);
    static MStatus select(MObject& object, ListAdjustment = kAddToList);
    static MStatus select(const MDagPath& object, const MObject& component, ListAdjustment = kAddToList);
    static MStatus unselect(MObject& object);
    static MStatus clearSelectionList();
    // The rich selection: the host has no soft selection, so this is the active selection, or an
    // empty one when defaultToActiveSelection is false. Setting it sets the active selection.
    static MStatus getRichSelection(MRichSelection& dest, bool defaultToActiveSelection = true);
    static MStatus setRichSelection(const MRichSelection& src);
    static bool isSelected(MObject& object, MStatus* ReturnStatus = NULL);

    // Runs script text (see host/README.md for the language). displayEnabled echoes the text to the
    // log; undoEnabled files each undoable command on the undo queue. A failure stops the script at
    // the failing command and returns a failing status; the commands before it keep their effect.
    static MStatus executeCommand(const MString& command, bool displayEnabled = false,
                                  bool undoEnabled = false);
    // As above, with the last command's result converted to the requested type (a scalar reading of
    // an array takes its first element; no result reads as 0, "" or an empty array).
    static MStatus executeCommand(const MString& command, int& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MIntArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, double& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MStringArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    // The last command's result as text, array elements separated by a blank; "" on failure.
    static MString executeCommandStringResult(const MString& command, bool displayEnabled = false,
                                              bool undoEnabled = false, MStatus* ResultStatus = nullptr);
    static MStatus executeCommand(const MString& command, MString& result, bool displayEnabled = false,
                                  bool undoEnabled = false);

    // Messages to the host's log: info to stdout, warnings and errors to stderr.
    static void displayInfo(const MString& theMessage);
    static void displayWarning(const MString& theWarning);
    static void displayError(const MString& theError);

    // Deletes a dependency or DAG node (a DAG node with everything below it) and its connections.
    // kInvalidParameter for a null or deleted node.
    static MStatus deleteNode(MObject& node);

    // Option variables. A read sets *exists and returns the value converted to the requested type
    // (a missing variable reads as 0, 0.0 or ""). A set replaces the value whatever its earlier type
    // and returns false only for an empty name.
    static int optionVarIntValue(const MString& name, bool* exists = nullptr);
    static double optionVarDoubleValue(const MString& name, bool* exists = nullptr);
    static MString optionVarStringValue(const MString& name, bool* exists = nullptr);
    static bool setOptionVarValue(const MString& name, int value);
    static bool setOptionVarValue(const MString& name, double value);
    static bool setOptionVarValue(const MString& name, MString value);
    static void removeOptionVar(const MString& name);
    static bool optionVarExists(const MString& name);
};
