#include <maya/MPxContext.h>
#include <maya/MPxToolCommand.h>

#include "commands/PluginCommand.h"
#include "interaction/ContextState.h"
#include "interaction/IssuedToolCommands.h"
#include "plugins/ContextCommandRegistry.h"

MPxContext::MPxContext() : fState(std::make_unique<mhost::ContextState>()) {}
MPxContext::~MPxContext() = default;
const char* MPxContext::className() { return "MPxContext"; }

void MPxContext::toolOnSetup(MEvent&) {}
void MPxContext::toolOffCleanup() {}

MStatus MPxContext::doPress(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return MS::kSuccess;
}
MStatus MPxContext::doRelease(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return MS::kSuccess;
}
MStatus MPxContext::doDrag(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return MS::kSuccess;
}
MStatus MPxContext::drawFeedback(MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return MS::kSuccess;
}
MStatus MPxContext::doPtrMoved(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return MS::kSuccess;
}

MStatus MPxContext::doPress(MEvent&) { return MS::kSuccess; }
MStatus MPxContext::doRelease(MEvent&) { return MS::kSuccess; }
MStatus MPxContext::doDrag(MEvent&) { return MS::kSuccess; }
MStatus MPxContext::doPtrMoved(MEvent&) { return MS::kSuccess; }

void MPxContext::deleteAction() {}
void MPxContext::completeAction() {}
void MPxContext::abortAction() {}

MStatus MPxContext::setImage(const MString& image, ImageIndex index) {
    if (index < kImage1 || index > kImage3) return MS::kInvalidParameter;
    fState->images[index] = image;
    return MS::kSuccess;
}

MString MPxContext::image(ImageIndex index, MStatus* ReturnStatus) const {
    const bool valid = index >= kImage1 && index <= kImage3;
    if (ReturnStatus) *ReturnStatus = valid ? MS::kSuccess : MS::kInvalidParameter;
    return valid ? fState->images[index] : MString();
}

MStatus MPxContext::setHelpString(const MString& str) {
    fState->help = str;
    return MS::kSuccess;
}

MStatus MPxContext::setTitleString(const MString& str) {
    fState->title = str;
    return MS::kSuccess;
}

MStatus MPxContext::setCursor(const MCursor& newCursor) {
    fState->cursor = newCursor;
    return MS::kSuccess;
}

MPxToolCommand* MPxContext::newToolCommand() {
    const mhost::ContextCommandEntry* entry = mhost::contextCommands().find(fState->contextCommand);
    if (!entry || !entry->toolCommandCreator) return nullptr;
    // A plug-in's creator returns its tool command class as void*, which Maya reads as MPxToolCommand*.
    std::unique_ptr<MPxToolCommand> command(static_cast<MPxToolCommand*>(entry->toolCommandCreator()));
    if (!command) return nullptr;
    mhost::CommandAccess::setSyntax(*command, entry->toolCommandSyntax);
    return mhost::issuedToolCommands().issue(
        {std::move(command), entry->toolCommandName, entry->toolCommandSyntax});
}
