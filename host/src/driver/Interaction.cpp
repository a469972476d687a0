#include <maya/MEvent.h>
#include <maya/MVector.h>
#include <mhost/Interaction.h>

#include <limits>

#include "drawing/GuiApplication.h"
#include "graph/NodeCreation.h"
#include "graph/Scene.h"
#include "interaction/ActiveView.h"
#include "interaction/CameraAim.h"
#include "interaction/CameraNode.h"
#include "interaction/ContextState.h"
#include "interaction/EventDispatch.h"
#include "interaction/ToolContexts.h"

namespace mhost {
namespace driver {
namespace {

// The camera shape a name stands for: the shape itself, or the transform directly above one.
NodePtr cameraNamed(const std::string& name) {
    NodePtr node = scene().findNode(name);
    if (node && !isCamera(*node))
        for (const auto& child : node->children)
            if (isCamera(*child)) return child;
    return node && isCamera(*node) ? node : nullptr;
}

NodePtr makeCamera(const std::string& name) {
    if (scene().findNode(name)) return nullptr;
    NodePtr transform = scene().createNode(nodeTypes().find("transform"), name);
    MStatus status;
    return nodeOf(createNodeWithTransform("camera", name + "Shape", transform.get(), status));
}

bool fitsShort(int value) {
    return value >= std::numeric_limits<short>::min() && value <= std::numeric_limits<short>::max();
}

int buttonOf(MouseButton button) {
    return button == MouseButton::kLeft ? MEvent::kLeftMouse : MEvent::kMiddleMouse;
}

int modifierBits(Modifiers modifiers) {
    return (modifiers.shift ? MEvent::shiftKey : 0) | (modifiers.control ? MEvent::controlKey : 0);
}

MStatus sendGesture(Gesture gesture, int x, int y, int button, Modifiers modifiers) {
    if (!fitsShort(x) || !fitsShort(y)) return MS::kInvalidParameter;
    const MEvent event = makeEvent(static_cast<short>(x), static_cast<short>(y), button, modifierBits(modifiers));
    return dispatchGesture(gesture, event);
}

const ContextState* currentState() {
    const MPxContext* context = toolContexts().current();
    return context ? &ContextState::of(*context) : nullptr;
}

}  // namespace

MStatus setViewSize(int width, int height) {
    if (width < 1 || height < 1) return MS::kInvalidParameter;
    activeView().setSize(width, height);
    return MS::kSuccess;
}

MStatus setViewCamera(const std::string& name) {
    NodePtr camera = cameraNamed(name);
    if (!camera) return MS::kInvalidParameter;
    activeView().setCamera(camera);
    return MS::kSuccess;
}

MStatus placeCamera(const MPoint& eye, const MPoint& target, const std::string& name) {
    const MVector view = target - eye;
    if (view.length() == 0.0) return MS::kInvalidParameter;
    NodePtr camera = cameraNamed(name);
    if (!camera) camera = makeCamera(name);
    if (!camera) return MS::kInvalidParameter;
    const MStatus status = aimCamera(camera, eye, view, MVector(0, 1, 0));
    if (status) activeView().setCamera(camera);
    return status;
}

int viewRefreshCount() { return activeView().refreshCount(); }

MStatus setToolTo(const std::string& contextName) { return toolContexts().setCurrent(contextName); }

MStatus deleteToolContext(const std::string& contextName) { return toolContexts().remove(contextName); }

std::string currentTool() { return toolContexts().currentName(); }

std::string currentToolHelp() {
    const ContextState* state = currentState();
    return state ? state->help.asChar() : "";
}

std::string currentToolCursor() {
    const ContextState* state = currentState();
    return cursorName(state ? state->cursor : MCursor::defaultCursor);
}

MStatus press(int x, int y, MouseButton button, Modifiers modifiers) {
    return sendGesture(Gesture::kPress, x, y, buttonOf(button), modifiers);
}

MStatus drag(int x, int y, MouseButton button, Modifiers modifiers) {
    return sendGesture(Gesture::kDrag, x, y, buttonOf(button), modifiers);
}

MStatus release(int x, int y, MouseButton button, Modifiers modifiers) {
    return sendGesture(Gesture::kRelease, x, y, buttonOf(button), modifiers);
}

MStatus movePointer(int x, int y, Modifiers modifiers) {
    return sendGesture(Gesture::kPointerMove, x, y, 0, modifiers);
}

MStatus sendKey(Key key) {
    switch (key) {
        case Key::kEnter:
            return dispatchKey(ToolKey::kEnter);
        case Key::kEscape:
            return dispatchKey(ToolKey::kEscape);
        case Key::kBackspace:
            return dispatchKey(ToolKey::kBackspace);
    }
    return MS::kInvalidParameter;
}

void ensureQtApplication() { ensureGuiApplication(); }

}  // namespace driver
}  // namespace mhost
