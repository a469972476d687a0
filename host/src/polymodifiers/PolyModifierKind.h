#pragma once
// What tells one modelling history node type from another (polyMergeVert, polyBridgeEdge,
// polySplitRing): its numeric parameters and the topological operation it applies to its input mesh.
// The node types are built from these descriptions, and the modelling commands use the same
// descriptions to check and apply an edit on a shape without history.

#include <maya/MFn.h>
#include <maya/MFnNumericData.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "mesh/MeshTopology.h"

namespace mhost {

struct PolyModifierParameter {
    std::string longName;
    std::string shortName;
    MFnNumericData::Type type;
    double defaultValue;
};

// Parameter values by long name.
using PolyModifierValues = std::map<std::string, double>;

struct PolyModifierKind {
    std::string typeName;
    MFn::Type apiType;
    std::vector<PolyModifierParameter> parameters;
    // The edited mesh, from the input mesh, the component ids and a value for every parameter. Throws
    // HostError when the ids or values do not fit the mesh.
    std::function<MeshTopology(const MeshTopology&, const std::vector<int>&, const PolyModifierValues&)>
        apply;

    // Every parameter's default, replaced by the value in `given` where there is one.
    PolyModifierValues withDefaults(const PolyModifierValues& given) const;
};

// polyMergeVert: vertex ids; distance (d), alwaysMergeTwoVertices (am).
const PolyModifierKind& polyMergeVertKind();
// polyBridgeEdge: edge ids; divisions (dv), smoothingAngle (sma, radians).
const PolyModifierKind& polyBridgeEdgeKind();
// polySplitRing: edge ids; weight (wt), smoothingAngle (sma, radians).
const PolyModifierKind& polySplitRingKind();

}  // namespace mhost
