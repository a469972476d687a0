#pragma once
// Components of a mesh: a set of vertex, edge or polygon ids (MFn::kMeshVertComponent,
// kMeshEdgeComponent, kMeshPolygonComponent), as MFnSingleIndexedComponent builds them and selection
// strings name them: "vtx[3]", "e[2:5]", "f[*]".

#include <maya/MObject.h>

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "graph/ComponentObject.h"
#include "mesh/MeshTopology.h"

namespace mhost {

class MeshComponent : public ComponentObject {
public:
    // `type` must be a mesh component type (isMeshComponentType); throws HostError otherwise.
    explicit MeshComponent(MFn::Type type);

    MFn::Type apiType() const override { return type_; }
    // ".vtx[3]", ".e[2:5]"; elements that do not form one run are listed with commas, ".f[1,4:6]",
    // which the host reads back though Maya would not.
    std::string selectionSuffix() const override;

    // Adds an element that is not there yet; elements keep the order they were added in. Ids must not be
    // negative (HostError).
    void add(int element);
    // Room for `count` more elements, for callers that add a known number.
    void reserve(std::size_t count) { elements_.reserve(elements_.size() + count); }
    const std::vector<int>& elements() const { return elements_; }

private:
    bool contains(int element) const;

    MFn::Type type_;
    std::vector<int> elements_;
    // The elements again, for look-ups once there are too many to scan; empty until then.
    mutable std::unordered_set<int> present_;
};

using MeshComponentPtr = std::shared_ptr<MeshComponent>;

bool isMeshComponentType(MFn::Type type);
// The mesh component an MObject holds, alive as long as the object holds it; null for anything else.
// No share is taken: iterators and function sets look components up several times per vertex.
MeshComponent* meshComponentOf(const MObject& object);
// How many elements of the component's kind the mesh has.
int elementCountOf(MFn::Type type, const MeshTopology& mesh);

// The component a selection-string suffix such as "vtx[2:5]" names on `mesh`, or null when the text is
// no mesh component or names an element the mesh does not have.
MeshComponentPtr parseMeshComponent(const std::string& text, const MeshTopology& mesh);
// Whether `text` has the form of a component ("vtx[...]", "e[...]", ...), ids unchecked: names that
// cannot be components are told apart without looking at the mesh.
bool looksLikeMeshComponent(const std::string& text);

}  // namespace mhost
