#include <maya/MArgList.h>
#include <maya/MPxContextCommand.h>
#include <maya/MString.h>

#include "commands/CommandResult.h"
#include "commands/SyntaxData.h"
#include "core/ApiObject.h"
#include "interaction/ContextCall.h"
#include "interaction/ContextCommandAccess.h"

namespace mhost {

MStatus ContextCommandAccess::prepare(MPxContextCommand& command, const std::string& name) {
    command.fSyntax = std::make_shared<SyntaxData>();
    MSyntax syntax(command.fSyntax);
    syntax.enableEdit();
    syntax.enableQuery();
    syntax.setObjectType(MSyntax::kStringObjects, 0, 1);
    syntax.addFlag("-ex", "-exists");
    syntax.addFlag("-i1", "-image1", MSyntax::kString);
    syntax.addFlag("-i2", "-image2", MSyntax::kString);
    syntax.addFlag("-i3", "-image3", MSyntax::kString);
    return callContext(name + " appendSyntax", [&] { return command.appendSyntax(); });
}

const SyntaxData& ContextCommandAccess::syntaxData(const MPxContextCommand& command) {
    if (!command.fSyntax) throw HostError("context command: the command object has no syntax yet");
    return *command.fSyntax;
}

MStatus ContextCommandAccess::runFlags(MPxContextCommand& command, const std::string& name,
                                       const MArgList& line, bool query) {
    command.fLine = std::make_shared<const MArgList>(line);
    const MStatus status = callContext(name + (query ? " doQueryFlags" : " doEditFlags"), [&] {
        return query ? command.doQueryFlags() : command.doEditFlags();
    });
    command.fLine.reset();
    return status;
}

}  // namespace mhost

MPxContextCommand::MPxContextCommand() = default;
MPxContextCommand::~MPxContextCommand() = default;
MStatus MPxContextCommand::doEditFlags() { return MS::kSuccess; }
MStatus MPxContextCommand::doQueryFlags() { return MS::kSuccess; }
MPxContext* MPxContextCommand::makeObj() { return nullptr; }
MStatus MPxContextCommand::appendSyntax() { return MS::kSuccess; }
const char* MPxContextCommand::className() { return "MPxContextCommand"; }

MStatus MPxContextCommand::setResult(bool result) { return setResult(result ? 1 : 0); }

MStatus MPxContextCommand::setResult(int result) {
    mhost::currentResult().set(result);
    return MS::kSuccess;
}

MStatus MPxContextCommand::setResult(double result) {
    mhost::currentResult().set(result);
    return MS::kSuccess;
}

MStatus MPxContextCommand::setResult(const MString& result) {
    mhost::currentResult().set(std::string(result.asChar()));
    return MS::kSuccess;
}

MSyntax MPxContextCommand::syntax(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = fSyntax ? MS::kSuccess : MS::kFailure;
    return fSyntax ? MSyntax(fSyntax) : MSyntax();
}

MArgParser MPxContextCommand::parser(MStatus* ReturnStatus) const {
    if (!fSyntax || !fLine) {
        if (ReturnStatus) *ReturnStatus = MS::kFailure;
        return MArgParser();
    }
    return MArgParser(MSyntax(fSyntax), *fLine, ReturnStatus);
}
