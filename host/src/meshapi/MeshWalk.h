#pragma once
// What the mesh iterators share: the mesh, the elements to visit (every vertex, edge or polygon, or a
// list taken from a component, in its order), the position reached and the spaces to answer in. The
// world matrix is taken when the walk starts or is reset, so a step costs no matrix product.

#include <maya/MObject.h>
#include <maya/MTypes.h>

#include <optional>
#include <vector>

#include "meshapi/MeshRef.h"
#include "meshapi/MeshSpace.h"

namespace mhost {

class MeshWalk {
public:
    // Visits `elements` in order, or every element of `kind` (a mesh component type) when there is no
    // list.
    MeshWalk(MeshRef mesh, MFn::Type kind, std::optional<std::vector<int>> elements);

    const MeshRef& mesh() const { return mesh_; }
    const MeshTopology& topology() const { return mesh_.mesh(); }
    // Elements to visit.
    int count() const;
    bool isDone() const { return position_ >= count(); }
    void next() { ++position_; }
    void reset();
    // The id of the current element; throws std::out_of_range when the walk is done or the element is
    // no longer in the mesh.
    int current() const;
    // Throws std::out_of_range when an element the walk visits is no longer in the mesh.
    void checkElements() const;
    // The id at `place` (below count()) among the elements to visit, unchecked: calls that read or
    // write every element check them all first, so that a refused call changes nothing.
    int elementAt(int place) const { return elements_ ? (*elements_)[place] : place; }
    // Makes `id` the current element and returns the one before (-1 when the walk was done). A walk over
    // a list resumes after the id's place in it, so the id must be on the list; throws otherwise.
    int moveTo(int id);
    // Positions, normals and directions in `space`.
    const MeshSpace& frame(MSpace::Space space) const;

private:
    MeshRef mesh_;
    MFn::Type kind_;
    std::optional<std::vector<int>> elements_;
    int position_ = 0;
    mutable std::optional<MeshSpace> world_;
};

// The elements a component names for an iterator over `kind`: none (every element) for a null
// component; throws HostError for a component of another kind.
std::optional<std::vector<int>> componentElements(const MObject& component, MFn::Type kind);
// The vertices a component of any mesh kind touches, in order of first appearance (MItGeometry's view
// of a component); none for a null component.
std::optional<std::vector<int>> componentVertices(const MObject& component, const MeshTopology& mesh);

}  // namespace mhost
