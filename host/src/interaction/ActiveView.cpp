#include "interaction/ActiveView.h"

#include <maya/MMatrix.h>

#include <string>

#include "messages/Notifications.h"

namespace mhost {

void ActiveView::setSize(int width, int height) {
    if (width < 1 || height < 1)
        throw HostError("view: a size of " + std::to_string(width) + " x " + std::to_string(height) +
                        " pixels has no area");
    fWidth = width;
    fHeight = height;
    notifyEvent("modelEditorChanged");
}

NodePtr ActiveView::camera() const {
    NodePtr camera = fCamera.lock();
    return camera && camera->alive ? camera : nullptr;
}

void ActiveView::setCamera(const NodePtr& camera) {
    if (!camera || !camera->alive || !isCamera(*camera))
        throw HostError("view: '" + (camera ? camera->name : std::string("null")) + "' is not a live camera");
    fCamera = camera;
    fProjection.reset();
    notifyEvent("modelEditorChanged");
}

MDagPath ActiveView::cameraPath() const {
    NodePtr shape = camera();
    return shape ? MDagPath::fromHostNode(shape) : MDagPath();
}

ViewProjection ActiveView::projection() const {
    NodePtr shape = camera();
    if (!shape) throw HostError("view: the view has no camera");
    if (!isKept(*shape)) {
        ViewProjection made(cameraPath().inclusiveMatrix(), readLens(shape), fWidth, fHeight);
        std::vector<const Node*> lineage;
        for (const Node* n = shape.get(); n; n = n->parent) lineage.push_back(n);
        // The counts are taken after reading: reading may clean dirty flags, which counts as an edit.
        fProjection = KeptProjection{lineage, shape->valueEdits, transformEditCount(), fWidth, fHeight, made};
    }
    return fProjection->projection;
}

bool ActiveView::isKept(const Node& camera) const {
    if (!fProjection || fProjection->cameraEdits != camera.valueEdits ||
        fProjection->transformEdits != transformEditCount() || fProjection->width != fWidth ||
        fProjection->height != fHeight)
        return false;
    const Node* n = &camera;
    for (const Node* kept : fProjection->cameraAndAncestors) {
        if (n != kept) return false;
        n = n->parent;
    }
    return n == nullptr;
}

ActiveView& activeView() {
    static ActiveView view;
    return view;
}

}  // namespace mhost
