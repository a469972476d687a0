#pragma once
// MSyntax: the description of a command's flags (each with up to six typed arguments), its typed
// command arguments and the objects it accepts. Scripts check a registered command's arguments
// against it before doIt; MArgParser and MArgDatabase parse an argument list with it.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <memory>

namespace mhost {
struct SyntaxData;
}

class OPENMAYA_EXPORT MSyntax {
public:
    enum MArgType {
        kInvalidArgType,
        kNoArg,
        kBoolean,
        kLong,
        kDouble,
        kString,
        kUnsigned,
        kDistance,
        kAngle,
        kTime,
        kSelectionItem,
        kLastArgType
    };
    enum MObjectFormat { kInvalidObjectFormat, kNone, kStringObjects, kSelectionList, kLastObjectFormat };

    // An empty syntax: no flags, no arguments, no objects, neither query nor edit.
    MSyntax();
    // Copies of a syntax the caller owns are independent; a syntax obtained from a command class
    // (a view on the host's own description) stays a view when copied, so edits through it apply.
    MSyntax(const MSyntax& other);
    virtual ~MSyntax();
    MSyntax& operator=(const MSyntax& rhs);

    // Declares a flag by short and long name ("-m", "-mesh"; the dash may be left out) with the types
    // of its arguments, kNoArg ending the list. kInvalidParameter for a missing name, kFailure when
    // either name is already declared.
    MStatus addFlag(const char* shortName, const char* longName, MArgType argType1 = kNoArg,
                    MArgType argType2 = kNoArg, MArgType argType3 = kNoArg, MArgType argType4 = kNoArg,
                    MArgType argType5 = kNoArg, MArgType argType6 = kNoArg);
    // Lets the flag appear more than once on one command line. kInvalidParameter for an unknown flag.
    MStatus makeFlagMultiUse(const char* flag);
    // Declares the next required command argument.
    MStatus addArg(MArgType arg);
    // With true, a command given no objects gets the active selection instead.
    void useSelectionAsDefault(bool useSelectionList = false);
    // Declares that the command takes objects, at least `minimumObjects`, with no maximum.
    MStatus setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects = 0);
    // Declares that the command takes between `minimumObjects` and `maximumObjects` objects.
    MStatus setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects,
                          unsigned int maximumObjects);
    void setMinObjects(unsigned int minimumObjectCount);
    void setMaxObjects(unsigned int maximumObjectCount);
    // Accepts "-q"/"-query" (flags then take no arguments) and "-e"/"-edit" on the command line.
    void enableQuery(bool supportsQuery = true);
    void enableEdit(bool supportsEdit = true);
    unsigned int minObjects() const;
    // The largest object count accepted; UINT_MAX when there is no maximum.
    unsigned int maxObjects() const;
    bool canQuery() const;
    bool canEdit() const;
    static const char* className();

    // Host side, not part of Maya's API: a view that shares the host's description, and access to it.
    explicit MSyntax(std::shared_ptr<mhost::SyntaxData> shared);
    const std::shared_ptr<mhost::SyntaxData>& hostData() const { return fData; }

private:
    std::shared_ptr<mhost::SyntaxData> fData;
    bool fOwn;
};
