#pragma once
// Host-side access to an MPxContextCommand's private state: its syntax and the line it reads.

#include <maya/MPxContextCommand.h>
#include <maya/MStatus.h>

#include <string>

class MArgList;

namespace mhost {

struct SyntaxData;

struct ContextCommandAccess {
    // Gives a new command object its syntax: edit and query modes, at most one object (the context's
    // name), the host's flags -ex/-exists and -i1/-image1 to -i3/-image3, then what appendSyntax adds.
    static MStatus prepare(MPxContextCommand& command, const std::string& name);
    static const SyntaxData& syntaxData(const MPxContextCommand& command);
    // Calls doQueryFlags (query) or doEditFlags with parser() reading `line` for the call's duration.
    static MStatus runFlags(MPxContextCommand& command, const std::string& name, const MArgList& line,
                            bool query);
};

}  // namespace mhost
