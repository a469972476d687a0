#pragma once
// MPxContextCommand: the script command that makes tool contexts. "cmd [flags] [name]" makes a
// context named `name` (or the command's name with a number) through makeObj and returns its name;
// "cmd -e flags name" calls doEditFlags and "cmd -q flag name" doQueryFlags, on the command object
// that made that context, with parser() reading the line. Context commands are not undoable.

#include <maya/MArgParser.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>
#include <maya/MTypes.h>

#include <memory>

class MArgList;
class MPxContext;
class MString;

namespace mhost {
struct ContextCommandAccess;
struct SyntaxData;
}  // namespace mhost

class OPENMAYAUI_EXPORT MPxContextCommand {
public:
    MPxContextCommand();
    virtual ~MPxContextCommand();
    // The line's flags in edit mode, and in query mode. Flags given when a context is made also go
    // to doEditFlags. The base versions do nothing and succeed.
    virtual MStatus doEditFlags();
    virtual MStatus doQueryFlags();
    // A new context; the host owns it. The base makes none (null), which fails the command.
    virtual MPxContext* makeObj();
    // Adds the command's own flags to syntax(); called once, before the command reads a line.
    virtual MStatus appendSyntax();
    // The result of the running line.
    MStatus setResult(bool result);
    MStatus setResult(int result);
    MStatus setResult(double result);
    MStatus setResult(const MString& result);
    MSyntax _syntax(MStatus* ReturnStatus = NULL) const { return syntax(ReturnStatus); }
    MArgParser _parser(MStatus* ReturnStatus = NULL) const { return parser(ReturnStatus); }
    static const char* className();

protected:
    // The command's syntax: the host's own flags (-e, -q, -ex/-exists, -i1/-image1 ...) and those
    // appendSyntax adds. Flags added through it join the command's syntax.
    MSyntax syntax(MStatus* ReturnStatus = NULL) const;
    // The line being run, read with syntax(); an empty parser (kFailure) outside a run.
    MArgParser parser(MStatus* ReturnStatus = NULL) const;

private:
    friend struct mhost::ContextCommandAccess;
    std::shared_ptr<mhost::SyntaxData> fSyntax;
    std::shared_ptr<const MArgList> fLine;
};
