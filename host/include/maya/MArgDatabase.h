#pragma once
// MArgDatabase: MArgParser for commands, whose objects and selection-item arguments can also be
// read as selection lists.

#include <maya/MArgParser.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MSelectionList;

class OPENMAYA_EXPORT MArgDatabase : public MArgParser {
public:
    MArgDatabase();
    // Reads `argList` with `syntax`, as MArgParser does.
    MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = nullptr);
    virtual ~MArgDatabase();
    // The same readings as MArgParser's.
    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    MStatus getCommandArgument(unsigned int index, bool& result) const;
    MStatus getCommandArgument(unsigned int index, int& result) const;
    MStatus getCommandArgument(unsigned int index, double& result) const;
    MStatus getCommandArgument(unsigned int index, MString& result) const;
    // The objects of the line resolved to a selection list; kInvalidParameter for a name that matches
    // nothing.
    MStatus getObjects(MSelectionList& result) const;
    MStatus getObjects(MStringArray& result) const;
    static const char* className();
};
