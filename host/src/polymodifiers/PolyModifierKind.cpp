#include "polymodifiers/PolyModifierKind.h"

#include "mesh/ops/BridgeEdges.h"
#include "mesh/ops/MergeVertices.h"
#include "mesh/ops/SplitEdgeRing.h"

namespace mhost {
namespace {

constexpr double kPi = 3.14159265358979323846;

}  // namespace

PolyModifierValues PolyModifierKind::withDefaults(const PolyModifierValues& given) const {
    PolyModifierValues values;
    for (const PolyModifierParameter& parameter : parameters) {
        const auto found = given.find(parameter.longName);
        values[parameter.longName] = found == given.end() ? parameter.defaultValue : found->second;
    }
    return values;
}

// Defaults are those of Maya's nodes.
const PolyModifierKind& polyMergeVertKind() {
    static const PolyModifierKind kind{
        "polyMergeVert",
        MFn::kPolyMergeVert,
        {{"distance", "d", MFnNumericData::kDouble, 0.0},
         {"alwaysMergeTwoVertices", "am", MFnNumericData::kBoolean, 0.0}},
        [](const MeshTopology& mesh, const std::vector<int>& ids, const PolyModifierValues& values) {
            return mergeVertices(mesh, ids, values.at("distance"), values.at("alwaysMergeTwoVertices") != 0)
                .mesh;
        }};
    return kind;
}

const PolyModifierKind& polyBridgeEdgeKind() {
    static const PolyModifierKind kind{
        "polyBridgeEdge",
        MFn::kPolyBridgeEdge,
        {{"divisions", "dv", MFnNumericData::kInt, 1.0},
         {"smoothingAngle", "sma", MFnNumericData::kDouble, kPi / 6}},
        [](const MeshTopology& mesh, const std::vector<int>& ids, const PolyModifierValues& values) {
            return bridgeEdges(mesh, ids, static_cast<int>(values.at("divisions")),
                               values.at("smoothingAngle"));
        }};
    return kind;
}

const PolyModifierKind& polySplitRingKind() {
    static const PolyModifierKind kind{
        "polySplitRing",
        MFn::kPolySplitRing,
        {{"weight", "wt", MFnNumericData::kDouble, 0.5},
         {"smoothingAngle", "sma", MFnNumericData::kDouble, kPi}},
        [](const MeshTopology& mesh, const std::vector<int>& ids, const PolyModifierValues& values) {
            return splitEdgeRing(mesh, ids, values.at("weight"), values.at("smoothingAngle"));
        }};
    return kind;
}

}  // namespace mhost
