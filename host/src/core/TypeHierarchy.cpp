// Maya's API type hierarchy for the types the host implements: each type with its parent. A type
// "has" a function set when it is that type or derives from it.

#include <unordered_map>

#include "core/ApiObject.h"

namespace mhost {
namespace {

struct TypeInfo {
    MFn::Type parent;
    const char* name;
};

const std::unordered_map<int, TypeInfo>& hierarchy() {
    static const std::unordered_map<int, TypeInfo> table = {
        {MFn::kInvalid, {MFn::kInvalid, "kInvalid"}},
        {MFn::kBase, {MFn::kInvalid, "kBase"}},
        {MFn::kNamedObject, {MFn::kBase, "kNamedObject"}},
        {MFn::kDependencyNode, {MFn::kNamedObject, "kDependencyNode"}},
        {MFn::kDagNode, {MFn::kDependencyNode, "kDagNode"}},
        {MFn::kTransform, {MFn::kDagNode, "kTransform"}},
        {MFn::kPluginTransformNode, {MFn::kTransform, "kPluginTransformNode"}},
        {MFn::kWorld, {MFn::kDagNode, "kWorld"}},
        {MFn::kShape, {MFn::kDagNode, "kShape"}},
        {MFn::kCamera, {MFn::kShape, "kCamera"}},
        {MFn::kGeometric, {MFn::kShape, "kGeometric"}},
        {MFn::kSurface, {MFn::kGeometric, "kSurface"}},
        {MFn::kMesh, {MFn::kSurface, "kMesh"}},
        {MFn::kLocator, {MFn::kShape, "kLocator"}},
        {MFn::kPluginLocatorNode, {MFn::kLocator, "kPluginLocatorNode"}},
        {MFn::kPluginShape, {MFn::kShape, "kPluginShape"}},
        {MFn::kPluginDependNode, {MFn::kDependencyNode, "kPluginDependNode"}},
        {MFn::kConstraint, {MFn::kTransform, "kConstraint"}},
        {MFn::kPluginConstraintNode, {MFn::kConstraint, "kPluginConstraintNode"}},
        {MFn::kCameraView, {MFn::kDependencyNode, "kCameraView"}},
        {MFn::kSet, {MFn::kDependencyNode, "kSet"}},
        {MFn::kShadingEngine, {MFn::kSet, "kShadingEngine"}},
        {MFn::kLambert, {MFn::kDependencyNode, "kLambert"}},
        {MFn::kGroupId, {MFn::kDependencyNode, "kGroupId"}},
        {MFn::kGroupParts, {MFn::kDependencyNode, "kGroupParts"}},
        {MFn::kMeshGeom, {MFn::kDependencyNode, "kMeshGeom"}},
        {MFn::kPolyTweak, {MFn::kDependencyNode, "kPolyTweak"}},
        {MFn::kPolyMoveVertex, {MFn::kDependencyNode, "kPolyMoveVertex"}},
        {MFn::kPolyMergeVert, {MFn::kDependencyNode, "kPolyMergeVert"}},
        {MFn::kPolySplitRing, {MFn::kDependencyNode, "kPolySplitRing"}},
        {MFn::kPolyBridgeEdge, {MFn::kDependencyNode, "kPolyBridgeEdge"}},
        {MFn::kComponent, {MFn::kBase, "kComponent"}},
        {MFn::kSingleIndexedComponent, {MFn::kComponent, "kSingleIndexedComponent"}},
        {MFn::kMeshVertComponent, {MFn::kSingleIndexedComponent, "kMeshVertComponent"}},
        {MFn::kMeshEdgeComponent, {MFn::kSingleIndexedComponent, "kMeshEdgeComponent"}},
        {MFn::kMeshPolygonComponent, {MFn::kSingleIndexedComponent, "kMeshPolygonComponent"}},
        {MFn::kMeshFaceVertComponent, {MFn::kComponent, "kMeshFaceVertComponent"}},
        {MFn::kMeshVtxFaceComponent, {MFn::kComponent, "kMeshVtxFaceComponent"}},
        {MFn::kAttribute, {MFn::kBase, "kAttribute"}},
        {MFn::kNumericAttribute, {MFn::kAttribute, "kNumericAttribute"}},
        {MFn::kUnitAttribute, {MFn::kAttribute, "kUnitAttribute"}},
        {MFn::kDoubleLinearAttribute, {MFn::kUnitAttribute, "kDoubleLinearAttribute"}},
        {MFn::kFloatLinearAttribute, {MFn::kUnitAttribute, "kFloatLinearAttribute"}},
        {MFn::kTypedAttribute, {MFn::kAttribute, "kTypedAttribute"}},
        {MFn::kCompoundAttribute, {MFn::kAttribute, "kCompoundAttribute"}},
        {MFn::kAttribute2Double, {MFn::kCompoundAttribute, "kAttribute2Double"}},
        {MFn::kAttribute3Double, {MFn::kCompoundAttribute, "kAttribute3Double"}},
        {MFn::kAttribute3Float, {MFn::kCompoundAttribute, "kAttribute3Float"}},
        {MFn::kAttribute2Float, {MFn::kCompoundAttribute, "kAttribute2Float"}},
        {MFn::kAttribute2Short, {MFn::kCompoundAttribute, "kAttribute2Short"}},
        {MFn::kAttribute2Int, {MFn::kCompoundAttribute, "kAttribute2Int"}},
        {MFn::kAttribute3Short, {MFn::kCompoundAttribute, "kAttribute3Short"}},
        {MFn::kAttribute3Int, {MFn::kCompoundAttribute, "kAttribute3Int"}},
        {MFn::kAttribute4Double, {MFn::kCompoundAttribute, "kAttribute4Double"}},
        {MFn::kGenericAttribute, {MFn::kAttribute, "kGenericAttribute"}},
        {MFn::kMessageAttribute, {MFn::kAttribute, "kMessageAttribute"}},
        {MFn::kPlugin, {MFn::kBase, "kPlugin"}},
        {MFn::kData, {MFn::kBase, "kData"}},
        {MFn::kComponentListData, {MFn::kData, "kComponentListData"}},
        {MFn::kDoubleArrayData, {MFn::kData, "kDoubleArrayData"}},
        {MFn::kIntArrayData, {MFn::kData, "kIntArrayData"}},
        {MFn::kFloatArrayData, {MFn::kData, "kFloatArrayData"}},
        {MFn::kMatrixData, {MFn::kData, "kMatrixData"}},
        {MFn::kNumericData, {MFn::kData, "kNumericData"}},
        {MFn::kPointArrayData, {MFn::kData, "kPointArrayData"}},
        {MFn::kStringData, {MFn::kData, "kStringData"}},
        {MFn::kStringArrayData, {MFn::kData, "kStringArrayData"}},
        {MFn::kVectorArrayData, {MFn::kData, "kVectorArrayData"}},
        {MFn::kGeometryData, {MFn::kData, "kGeometryData"}},
        {MFn::kMeshData, {MFn::kGeometryData, "kMeshData"}},
    };
    return table;
}

}  // namespace

bool typeDerivesFrom(MFn::Type type, MFn::Type ancestor) {
    const auto& table = hierarchy();
    while (type != MFn::kInvalid) {
        if (type == ancestor) return true;
        auto it = table.find(type);
        if (it == table.end()) return false;
        type = it->second.parent;
    }
    return ancestor == MFn::kInvalid;
}

const char* typeName(MFn::Type type) {
    auto it = hierarchy().find(type);
    return it == hierarchy().end() ? "kInvalid" : it->second.name;
}

bool ApiObject::hasFn(MFn::Type type) const { return typeDerivesFrom(apiType(), type); }

}  // namespace mhost
