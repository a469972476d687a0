#pragma once
// MPxContext: the base of a plug-in's interactive tool. A context command makes one (makeObj); the
// host owns it from then on. While it is the current tool it receives the view's mouse events through
// the viewport 2.0 handlers, the ENTER, ESC and BACKSPACE keys as completeAction, abortAction and
// deleteAction, and a drawFeedback call on every frame; toolOnSetup and toolOffCleanup bracket its
// time as the current tool.

#include <maya/MEvent.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>
#include <maya/MTypes.h>

#include <memory>

class MCursor;
class MPxToolCommand;

namespace MHWRender {
class MUIDrawManager;
class MFrameContext;
}  // namespace MHWRender

namespace mhost {
struct ContextState;
}

class OPENMAYAUI_EXPORT MPxContext {
public:
    enum ImageIndex { kImage1 = 0, kImage2, kImage3 };

    MPxContext();
    virtual ~MPxContext();
    // Called when the context becomes the current tool; `event` carries no button.
    virtual void toolOnSetup(MEvent& event);
    // Called when another tool replaces this one.
    virtual void toolOffCleanup();
    // The viewport 2.0 handlers, the ones the host calls: a press, each drag step, the release, and
    // pointer moves with no button down. What they draw on `drawMgr` is kept as the view's event
    // drawing until the next event. The base versions do nothing and succeed.
    virtual MStatus doPress(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                            const MHWRender::MFrameContext& context);
    virtual MStatus doRelease(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                              const MHWRender::MFrameContext& context);
    virtual MStatus doDrag(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                           const MHWRender::MFrameContext& context);
    // Called once per viewport frame while the context is current.
    virtual MStatus drawFeedback(MHWRender::MUIDrawManager& drawMgr, const MHWRender::MFrameContext& context);
    virtual MStatus doPtrMoved(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                               const MHWRender::MFrameContext& context);
    // The legacy viewport handlers. The host's view is a viewport 2.0 view and never calls them.
    virtual MStatus doPress(MEvent& event);
    virtual MStatus doRelease(MEvent& event);
    virtual MStatus doDrag(MEvent& event);
    virtual MStatus doPtrMoved(MEvent& event);
    // BACKSPACE and ENTER.
    virtual void deleteAction();
    virtual void completeAction();
    // The tool's icon images, by index; kInvalidParameter for an index out of range.
    MStatus setImage(const MString& image, ImageIndex index);
    MString image(ImageIndex index, MStatus* ReturnStatus = NULL) const;

    // Public doors to the protected members below.
    MStatus _setHelpString(const MString& str) { return setHelpString(str); }
    MStatus _setTitleString(const MString& str) { return setTitleString(str); }
    MStatus _setCursor(const MCursor& newCursor) { return setCursor(newCursor); }
    MPxToolCommand* _newToolCommand() { return newToolCommand(); }

protected:
    // The text of the help line while the tool is current, the tool's title, and its pointer shape.
    MStatus setHelpString(const MString& str);
    MStatus setTitleString(const MString& str);
    MStatus setCursor(const MCursor& newCursor);
    // A fresh instance of the tool command registered with this context's context command, or null
    // when it has none. The host owns it: finalize() files it on the undo queue; one that is not
    // finalised is deleted when the host call that made it (an event, a key, a flag) returns.
    virtual MPxToolCommand* newToolCommand();

public:
    // ESC.
    virtual void abortAction();
    static const char* className();

private:
    friend struct mhost::ContextState;
    std::unique_ptr<mhost::ContextState> fState;
};
