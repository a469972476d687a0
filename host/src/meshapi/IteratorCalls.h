#pragma once
// The entry-point guards of the mesh iterators: each call runs on the iterator's walk, and whatever the
// host throws, or a missing walk, comes out as the MStatus the caller sees.

#include <memory>
#include <string>

#include "attributes/ApiCall.h"
#include "meshapi/MeshWalk.h"

namespace mhost {

inline MeshWalk& walkOf(const std::shared_ptr<MeshWalk>& walk, const char* owner) {
    if (!walk) throw HostError(std::string(owner) + ": the iterator has no mesh");
    return *walk;
}

// body(walk) returning a value, reported through ReturnStatus.
template <class Body>
auto walkValue(const std::shared_ptr<MeshWalk>& walk, const char* owner, MStatus* ReturnStatus, Body&& body) {
    return guardValue(ReturnStatus, [&] { return body(walkOf(walk, owner)); });
}

// body(walk) returning nothing; its status.
template <class Body>
MStatus walkStatus(const std::shared_ptr<MeshWalk>& walk, const char* owner, Body&& body) {
    return guardStatus([&] { body(walkOf(walk, owner)); });
}

// Replaces `walk` with what `make` builds; on failure the iterator is left without a mesh.
template <class Make>
MStatus startWalk(std::shared_ptr<MeshWalk>& walk, Make&& make) {
    walk.reset();
    return guardStatus([&] { walk = std::make_shared<MeshWalk>(make()); });
}

}  // namespace mhost
