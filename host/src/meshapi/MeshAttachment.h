#pragma once
// What a mesh function set resolved its object to, kept between its calls. A tool casts hundreds of
// rays through one function set in a drag event; resolving at every call would copy the set's path and
// look its shape up again each time.

#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <vector>

#include "meshapi/MeshRef.h"

namespace mhost {

class MeshAttachment {
public:
    // The mesh that `object` (placed by `path` when it is a shape) stands for. Resolved again when the
    // object or the path's nodes differ from the last call, or a node of the path was deleted; throws
    // HostError as MeshRef::of does, keeping what it had.
    const MeshRef& mesh(const MObject& object, const MDagPath& path);
    // The world frame of the mesh last resolved, kept until a transform changes or the mesh is resolved
    // again: a ray cast through the set then copies no matrices. The reference lasts until that change.
    const MeshSpace& worldSpace();

private:
    bool stillResolves(const MObject& object, const MDagPath& path) const;

    const ApiObject* object_ = nullptr;
    std::vector<const Node*> pathNodes_;
    MeshRef mesh_;
    KeptWorldSpace world_;
};

}  // namespace mhost
