#pragma once
// What a mesh function set resolved its object to, kept between its calls: the mesh reference and the
// mesh's world-space frame. A tool casts hundreds of rays through one function set in a drag event;
// resolving at every call would copy the set's path, look its shape up again and multiply out and
// invert its world matrix each time.

#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "meshapi/MeshRef.h"
#include "meshapi/MeshSpace.h"

namespace mhost {

class MeshAttachment {
public:
    // The mesh that `object` (placed by `path` when it is a shape) stands for. Resolved again when the
    // object or the path's nodes differ from the last call, or a node of the path was deleted; throws
    // HostError as MeshRef::of does, keeping what it had.
    const MeshRef& mesh(const MObject& object, const MDagPath& path);
    // The frame of `space` for the mesh last returned by mesh(). The world matrix is taken again only
    // after a transform changed (or always, for mesh data, which carries its own matrix).
    const MeshSpace& space(MSpace::Space space);

private:
    bool stillResolves(const MObject& object, const MDagPath& path) const;

    const ApiObject* object_ = nullptr;
    std::vector<const Node*> pathNodes_;
    MeshRef mesh_;
    std::optional<MeshSpace> world_;
    std::uint64_t worldTransformEdits_ = 0;
};

}  // namespace mhost
