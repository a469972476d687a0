#include "nodes/kyPatchNode.h"

#include <maya/MDataHandle.h>
#include <maya/MFnData.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnFloatArrayData.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MFnMesh.h>
#include <maya/MFnMeshData.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MFnVectorArrayData.h>
#include <maya/MItGeometry.h>

#include "geometry/errorReporting.h"

MTypeId kyPatchNode::id(0x80026);
MString kyPatchNode::nameStem("kyPatch");
MString kyPatchNode::drawDbClassification("drawdb/geometry/kyPatch");

MObject kyPatchNode::numpolys;
MObject kyPatchNode::numverts;
MObject kyPatchNode::polycount;
MObject kyPatchNode::polyconnect;
MObject kyPatchNode::uarray;
MObject kyPatchNode::varray;
MObject kyPatchNode::vertexarray;
MObject kyPatchNode::polycountUV;
MObject kyPatchNode::polyconnUV;
MObject kyPatchNode::normalsin;
MObject kyPatchNode::facelist;
MObject kyPatchNode::vertexlist;
MObject kyPatchNode::hardenvalues;
MObject kyPatchNode::edgesharden;
MObject kyPatchNode::inMesh;
MObject kyPatchNode::outMesh;

namespace {

constexpr const char* kyErrorStem = "kyPatchNode";

// The node state in which the arrays rebuild nothing while the tool works on the shape.
const short kHasNoEffect = 1;

// How an attribute is opened: keyable (the counts, the points and the meshes) or merely writable.
enum class Access { kKeyable, kWritable };

// Every attribute is hidden; all but outMesh are saved with the scene.
void setFlags(MFnAttribute& attribute, Access access, bool storable = true) {
    attribute.setHidden(true);
    attribute.setStorable(storable);
    if (access == Access::kKeyable)
        attribute.setKeyable(true);
    else
        attribute.setWritable(true);
}

MObject typedAttribute(const char* longName, const char* shortName, MFnData::Type type, Access access,
                       bool storable = true) {
    MStatus status;
    MFnTypedAttribute typed;
    MObject attribute = typed.create(longName, shortName, type, MObject::kNullObj, &status);
    if (KY_REPORT_FAILURE(status)) return attribute;
    setFlags(typed, access, storable);
    return attribute;
}

MObject countAttribute(const char* longName, const char* shortName) {
    MStatus status;
    MFnNumericAttribute numeric;
    MObject attribute = numeric.create(longName, shortName, MFnNumericData::kInt, 0, &status);
    if (KY_REPORT_FAILURE(status)) return attribute;
    setFlags(numeric, Access::kKeyable);
    return attribute;
}

void createAttributes() {
    using Data = MFnData;
    const Access K = Access::kKeyable;
    const Access W = Access::kWritable;

    kyPatchNode::numpolys = countAttribute("numpolys", "np");
    kyPatchNode::numverts = countAttribute("numverts", "nv");
    kyPatchNode::polycount = typedAttribute("polycount", "pcu", Data::kIntArray, W);
    kyPatchNode::polyconnect = typedAttribute("polyconnect", "pcn", Data::kIntArray, W);
    kyPatchNode::uarray = typedAttribute("uarray", "us", Data::kFloatArray, W);
    kyPatchNode::varray = typedAttribute("varray", "vs", Data::kFloatArray, W);
    kyPatchNode::vertexarray = typedAttribute("vertexarray", "va", Data::kPointArray, K);
    kyPatchNode::polycountUV = typedAttribute("polycountUV", "pcuv", Data::kIntArray, W);
    kyPatchNode::polyconnUV = typedAttribute("polyconnUV", "pcov", Data::kIntArray, W);
    kyPatchNode::normalsin = typedAttribute("normalsin", "ni", Data::kVectorArray, W);
    kyPatchNode::facelist = typedAttribute("facelist", "fl", Data::kIntArray, W);
    kyPatchNode::vertexlist = typedAttribute("vertexlist", "vl", Data::kIntArray, W);
    kyPatchNode::hardenvalues = typedAttribute("hardenvalues", "hv", Data::kIntArray, W);
    kyPatchNode::edgesharden = typedAttribute("edgesharden", "eh", Data::kIntArray, W);
    kyPatchNode::inMesh = typedAttribute("inMesh", "im", Data::kMesh, K);
    kyPatchNode::outMesh = typedAttribute("outMesh", "om", Data::kMesh, K, false);
}

// The order in which the attributes join the node, which is the order the host lists them in.
MStatus addAttributes() {
    const MObject* const order[] = {
        &kyPatchNode::outMesh,      &kyPatchNode::inMesh,      &kyPatchNode::uarray,
        &kyPatchNode::varray,       &kyPatchNode::vertexarray, &kyPatchNode::polyconnect,
        &kyPatchNode::polycount,    &kyPatchNode::numpolys,    &kyPatchNode::numverts,
        &kyPatchNode::hardenvalues, &kyPatchNode::edgesharden, &kyPatchNode::vertexlist,
        &kyPatchNode::normalsin,    &kyPatchNode::facelist,    &kyPatchNode::polyconnUV,
        &kyPatchNode::polycountUV,
    };
    MStatus status;
    for (const MObject* attribute : order) {
        status = MPxNode::addAttribute(*attribute);
        KY_REPORT_FAILURE(status);
    }
    return status;
}

// Only the points, the upstream mesh and the node state are declared; the other arrays reach
// outMesh through setDependentsDirty alone.
MStatus addDependencies() {
    const MObject* const causes[] = {&kyPatchNode::vertexarray, &kyPatchNode::inMesh, &MPxNode::state};
    MStatus status;
    for (const MObject* cause : causes) {
        status = MPxNode::attributeAffects(*cause, kyPatchNode::outMesh);
        KY_REPORT_FAILURE(status);
    }
    return status;
}

// The data object an input attribute holds; a failing read is reported and gives a null object.
MObject inputData(MDataBlock& dataBlock, const MObject& attribute) {
    MStatus status;
    MDataHandle handle = dataBlock.inputValue(attribute, &status);
    KY_REPORT_FAILURE(status);
    return handle.data();
}

}  // namespace

kyPatchNode::kyPatchNode() = default;

kyPatchNode::~kyPatchNode() = default;

void* kyPatchNode::creator() { return new kyPatchNode(); }

MStatus kyPatchNode::initialize() {
    createAttributes();
    addAttributes();
    return addDependencies();
}

MFloatArray kyPatchNode::getFloatArrayInput(MDataBlock& dataBlock, const MObject& attribute) {
    MFnFloatArrayData data(inputData(dataBlock, attribute));
    return data.array();
}

MIntArray kyPatchNode::getIntArrayInput(MDataBlock& dataBlock, const MObject& attribute) {
    MFnIntArrayData data(inputData(dataBlock, attribute));
    return data.array();
}

MPointArray kyPatchNode::getPointArrayInput(MDataBlock& dataBlock, const MObject& attribute) {
    MFnPointArrayData data(inputData(dataBlock, attribute));
    return data.array();
}

MVectorArray kyPatchNode::getVectorArrayInput(MDataBlock& dataBlock, const MObject& attribute) {
    MFnVectorArrayData data(inputData(dataBlock, attribute));
    return data.array();
}

MString kyPatchNode::outputNodeName(MString& outName) const {
    outName = "";
    MStatus status;
    MPlug outPlug = MFnDependencyNode(thisMObject()).findPlug(outMesh, false, &status);
    MPlugArray destinations;
    if (status && outPlug.destinations(destinations) && destinations.length() > 0)
        outName = MFnDependencyNode(destinations[0].node()).name();
    return outName;
}

MStatus kyPatchNode::compute(const MPlug& plug, MDataBlock& dataBlock) {
    MStatus status = MS::kSuccess;
    const short nodeState = dataBlock.outputValue(state).asShort();

    if (nodeState == kHasNoEffect) {
        // The tool is editing the shape: only the points are taken from the arrays, written straight
        // into the incoming mesh. The plug is deliberately not set clean on this path.
        MDataHandle inHandle = dataBlock.inputValue(inMesh);
        MDataHandle outHandle = dataBlock.outputValue(outMesh);
        const MPointArray points = getPointArrayInput(dataBlock, vertexarray);
        if (points.length() > 0) {
            MItGeometry geometry(inHandle, 0, false);
            // A point count other than the mesh's is refused by the iterator; the mesh then passes on.
            geometry.setAllPositions(points, MSpace::kObject);
        }
        outHandle.set(inHandle.asMesh());
        return status;
    }

    if (plug == outMesh) {
        MDataHandle inHandle = dataBlock.inputValue(inMesh);
        MDataHandle outHandle = dataBlock.outputValue(outMesh);
        MString downstream;
        outputNodeName(downstream);

        const int polygonCount = dataBlock.inputValue(numpolys).asInt();
        const int vertexCount = dataBlock.inputValue(numverts).asInt();
        const MIntArray counts = getIntArrayInput(dataBlock, polycount);
        const MIntArray connects = getIntArrayInput(dataBlock, polyconnect);
        const MPointArray points = getPointArrayInput(dataBlock, vertexarray);
        const MFloatArray us = getFloatArrayInput(dataBlock, uarray);
        const MFloatArray vs = getFloatArrayInput(dataBlock, varray);
        // Normals with their face and vertex ids are read and not applied: normals follow from the
        // edge hardness.
        const MVectorArray normals = getVectorArrayInput(dataBlock, normalsin);
        const MIntArray normalFaces = getIntArrayInput(dataBlock, facelist);
        const MIntArray normalVertices = getIntArrayInput(dataBlock, vertexlist);
        const MIntArray smoothValues = getIntArrayInput(dataBlock, hardenvalues);
        const MIntArray smoothEdges = getIntArrayInput(dataBlock, edgesharden);
        const MIntArray uvCounts = getIntArrayInput(dataBlock, polycountUV);
        const MIntArray uvIds = getIntArrayInput(dataBlock, polyconnUV);

        const bool arraysEmpty = polygonCount == 0 && vertexCount == 0 && uvIds.length() == 0 &&
                                 points.length() == 0 && connects.length() == 0;
        if (arraysEmpty) {
            outHandle.set(inHandle.asMesh());
        } else {
            MFnMeshData dataCreator;
            MObject meshData = dataCreator.create(&status);
            MFnMesh mesh;
            mesh.create(vertexCount, polygonCount, points, counts, connects, us, vs, meshData, &status);
            mesh.assignUVs(uvCounts, uvIds);
            mesh.setEdgeSmoothings(smoothEdges, smoothValues);
            mesh.cleanupEdgeSmoothing();
            mesh.updateSurface();
            outHandle.set(meshData);
            KY_REPORT_FAILURE(status);
        }
    }
    return dataBlock.setClean(plug);
}

MStatus kyPatchNode::setDependentsDirty(const MPlug& plug, MPlugArray& plugArray) {
    const MObject* const dirtying[] = {&polyconnUV, &state, &vertexarray};
    for (const MObject* attribute : dirtying) {
        if (!(plug == *attribute)) continue;
        MStatus status;
        MPlug outPlug = MFnDependencyNode(thisMObject()).findPlug(outMesh, false, &status);
        if (status) plugArray.append(outPlug);
    }
    return MS::kSuccess;
}
