#pragma once
// The host's one 3D view, standing for Maya's active model panel: a port size in pixels and the
// camera it looks through. It outlives scene resets; a camera deleted with its scene leaves the view
// without a camera until another is set. Changing the camera or the size sends "modelEditorChanged".

#include <maya/MDagPath.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "graph/Node.h"
#include "interaction/ViewProjection.h"

namespace mhost {

class ActiveView {
public:
    int width() const { return fWidth; }
    int height() const { return fHeight; }
    // Throws HostError for a size below one pixel.
    void setSize(int width, int height);

    // The camera shape, or null when there is none (never set, or deleted).
    NodePtr camera() const;
    // Looks through a camera shape; throws HostError for a node that is not a live camera.
    void setCamera(const NodePtr& camera);
    // The path of the camera shape; an invalid path when there is none.
    MDagPath cameraPath() const;
    // The projection of the current camera and size; throws HostError when there is no camera.
    ViewProjection projection() const;

    // Counts the refreshes requested through M3dView since the process started.
    void noteRefresh() { ++fRefreshes; }
    int refreshCount() const { return fRefreshes; }

private:
    // A port of Maya's default render resolution until a program sets one.
    int fWidth = 640;
    int fHeight = 480;
    std::weak_ptr<Node> fCamera;
    int fRefreshes = 0;

    // The last projection made, reused while the camera, the transforms above it and the size stay as
    // they were.
    struct KeptProjection {
        std::vector<const Node*> cameraAndAncestors;
        std::uint64_t cameraEdits, transformEdits;
        int width, height;
        ViewProjection projection;
    };
    mutable std::optional<KeptProjection> fProjection;
    bool isKept(const Node& camera) const;
};

ActiveView& activeView();

}  // namespace mhost
