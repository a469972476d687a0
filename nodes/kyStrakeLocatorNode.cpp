#include "nodes/kyStrakeLocatorNode.h"

#include <maya/MFnData.h>
#include <maya/MFnGenericAttribute.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MViewport2Renderer.h>

#include <utility>

#include "geometry/errorReporting.h"

MTypeId kyStrake::id(0x80025);
MString kyStrake::drawDbClassification("drawdb/geometry/kyStrake");
MString kyStrake::drawRegistrantId("kyStrake");

MObject kyStrake::strokes;
MObject kyStrake::sizes;
MObject kyStrake::strokesShadow;
MObject kyStrake::sizesShadow;
MObject kyStrake::strokesNondestruct;
MObject kyStrake::sizesNondestruct;
MObject kyStrake::playervtx;
MObject kyStrake::playersLine;
MObject kyStrake::playerpts;
MObject kyStrake::shadowIndices1;
MObject kyStrake::shadowIndices2;
MObject kyStrake::shadowIndices3;
MObject kyStrake::newFaces;
MObject kyStrake::freepoints;
MObject kyStrake::freezeMedian;
MObject kyStrake::fusept;
MObject kyStrake::fusemesh;
MObject kyStrake::fuseindices;
MObject kyStrake::sublines;
MObject kyStrake::magnetPt;
MObject kyStrake::tweakRadius;
MObject kyStrake::mode;
MObject kyStrake::interPoint;
MObject kyStrake::interNormal;
MObject kyStrake::pointsDebug;
MObject kyStrake::verticestweak;
MObject kyStrake::kyStrakeMesh;
MObject kyStrake::inputNormals;
MObject kyStrake::displayInfo;
MObject kyStrake::displaySize;
MObject kyStrake::pinch;
MObject kyStrake::symmetry;
MObject kyStrake::radiusMoveInteractive;
MObject kyStrake::radiusRelaxInteractive;
MObject kyStrake::intensityRelaxInteractive;

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// How an attribute is opened to the artist: keyable, or merely writable. The other of the two
// flags keeps the host's default.
enum class Access { kKeyable, kWritable };
enum class Visibility { kHidden, kShown };

// Flags every locator attribute shares: storable, so the tool's state is saved with the scene, and
// cached unless told otherwise.
void setCommonFlags(MFnAttribute& attribute, Access access, Visibility visibility, bool cached = true) {
    attribute.setStorable(true);
    attribute.setCached(cached);
    attribute.setHidden(visibility == Visibility::kHidden);
    if (access == Access::kKeyable)
        attribute.setKeyable(true);
    else
        attribute.setWritable(true);
}

// An array attribute (points, ids or vectors) that reads as empty until written.
MObject typedAttribute(const char* longName, const char* shortName, MFnData::Type type, Access access,
                       Visibility visibility) {
    MStatus status;
    MFnTypedAttribute typed;
    MObject attribute = typed.create(longName, shortName, type, MObject::kNullObj, &status);
    if (KY_REPORT_FAILURE(status)) return attribute;
    setCommonFlags(typed, access, visibility);
    return attribute;
}

MObject numericAttribute(const char* longName, const char* shortName, MFnNumericData::Type type,
                         double defaultValue, Access access, Visibility visibility) {
    MStatus status;
    MFnNumericAttribute numeric;
    MObject attribute = numeric.create(longName, shortName, type, defaultValue, &status);
    if (KY_REPORT_FAILURE(status)) return attribute;
    setCommonFlags(numeric, access, visibility);
    return attribute;
}

// The connection from the source mesh: generic, accepting meshes only, and not cached, so that
// the mesh is always read through the connection.
MObject sourceMeshAttribute(const char* longName, const char* shortName) {
    MStatus status;
    MFnGenericAttribute generic;
    MObject attribute = generic.create(longName, shortName, &status);
    if (KY_REPORT_FAILURE(status)) return attribute;
    setCommonFlags(generic, Access::kKeyable, Visibility::kShown, false);
    return attribute;
}

// The interactive brush values on display; a written value below 0.1 is raised by the host's
// limit, while the default of 0 stays as it is.
void setDisplayMinimum(const MObject& attribute) {
    MFnNumericAttribute numeric(attribute);
    numeric.setMin(0.1);
}

void createAttributes() {
    using Data = MFnData;
    using Numeric = MFnNumericData;
    const Access K = Access::kKeyable;
    const Access W = Access::kWritable;
    const Visibility hid = Visibility::kHidden;
    const Visibility shown = Visibility::kShown;

    kyStrake::strokes = typedAttribute("strokes", "stk", Data::kPointArray, K, hid);
    kyStrake::playervtx = typedAttribute("playervtx", "pvt", Data::kIntArray, K, hid);
    kyStrake::freepoints = typedAttribute("freepoints", "frt", Data::kPointArray, K, hid);
    kyStrake::freezeMedian = typedAttribute("freezeMedian", "frm", Data::kPointArray, K, hid);
    kyStrake::sizes = typedAttribute("sizes", "sz", Data::kIntArray, W, hid);
    kyStrake::playersLine = typedAttribute("playersLine", "pla", Data::kPointArray, K, hid);
    kyStrake::playerpts = typedAttribute("playerpts", "ppt", Data::kPointArray, K, hid);
    kyStrake::pointsDebug = typedAttribute("pointsDebug", "pdb", Data::kPointArray, K, hid);
    kyStrake::strokesShadow = typedAttribute("strokesShadow", "shtk", Data::kPointArray, K, hid);
    kyStrake::sizesShadow = typedAttribute("sizesShadow", "shz", Data::kIntArray, K, hid);
    kyStrake::strokesNondestruct = typedAttribute("strokesNondestruct", "stnd", Data::kPointArray, K, hid);
    kyStrake::sizesNondestruct = typedAttribute("sizesNondestruct", "snd", Data::kIntArray, K, hid);
    kyStrake::newFaces = typedAttribute("newFaces", "nf", Data::kIntArray, W, hid);
    kyStrake::displayInfo = numericAttribute("displayInfo", "di", Numeric::kInt, 1, W, shown);
    // An integer array although it speaks of one radius: radius, pointer x and pointer y.
    kyStrake::tweakRadius = typedAttribute("tweakRadius", "twr", Data::kIntArray, W, hid);
    kyStrake::kyStrakeMesh = sourceMeshAttribute("kyStrakeMesh", "km");
    kyStrake::shadowIndices1 = typedAttribute("shadowIndices1", "shio", Data::kIntArray, W, hid);
    kyStrake::shadowIndices2 = typedAttribute("shadowIndices2", "shis", Data::kIntArray, W, hid);
    kyStrake::shadowIndices3 = typedAttribute("shadowIndices3", "shit", Data::kIntArray, W, hid);
    kyStrake::fusept = typedAttribute("fusept", "fpt", Data::kPointArray, W, hid);
    kyStrake::magnetPt = typedAttribute("magnetPt", "mgn", Data::kPointArray, W, hid);
    kyStrake::sublines = typedAttribute("sublines", "sbl", Data::kPointArray, K, hid);
    kyStrake::fusemesh = typedAttribute("fusemesh", "fmh", Data::kPointArray, K, hid);
    kyStrake::fuseindices = typedAttribute("fuseindices", "fid", Data::kIntArray, W, hid);
    kyStrake::verticestweak = typedAttribute("verticestweak", "tkv", Data::kPointArray, W, hid);
    kyStrake::inputNormals = typedAttribute("inputNormals", "ino", Data::kVectorArray, W, hid);
    kyStrake::displaySize = numericAttribute("displaySize", "dsz", Numeric::kDouble, 0, W, shown);
    kyStrake::pinch = numericAttribute("pinch", "pch", Numeric::kDouble, 0, W, hid);
    kyStrake::mode = numericAttribute("mode", "mo", Numeric::kInt, 0, W, hid);
    kyStrake::symmetry = numericAttribute("symmetry", "sym", Numeric::kInt, 0, W, hid);
    kyStrake::radiusMoveInteractive =
        numericAttribute("radiusMoveInteractive", "rmi", Numeric::kDouble, 0, W, shown);
    kyStrake::radiusRelaxInteractive =
        numericAttribute("radiusRelaxInteractive", "rri", Numeric::kDouble, 0, W, shown);
    kyStrake::intensityRelaxInteractive =
        numericAttribute("intensityRelaxInteractive", "iri", Numeric::kDouble, 0, W, shown);
    kyStrake::interPoint = numericAttribute("interPoint", "ip", Numeric::k3Double, 0, W, hid);
    // "in" is the short name scenes and scripts already use; it stays although it reads like a keyword.
    kyStrake::interNormal = numericAttribute("interNormal", "in", Numeric::k3Double, 0, W, hid);
}

// The order in which the attributes join the node, which is the order the host lists them in.
void addAttributes() {
    const MObject* const order[] = {
        &kyStrake::pointsDebug,
        &kyStrake::intensityRelaxInteractive,
        &kyStrake::radiusRelaxInteractive,
        &kyStrake::radiusMoveInteractive,
        &kyStrake::interPoint,
        &kyStrake::interNormal,
        &kyStrake::symmetry,
        &kyStrake::sublines,
        &kyStrake::mode,
        &kyStrake::pinch,
        &kyStrake::sizes,
        &kyStrake::newFaces,
        &kyStrake::tweakRadius,
        &kyStrake::fusept,
        &kyStrake::strokes,
        &kyStrake::playerpts,
        &kyStrake::magnetPt,
        &kyStrake::fusemesh,
        &kyStrake::playervtx,
        &kyStrake::kyStrakeMesh,
        &kyStrake::verticestweak,
        &kyStrake::shadowIndices1,
        &kyStrake::shadowIndices2,
        &kyStrake::shadowIndices3,
        &kyStrake::playersLine,
        &kyStrake::fuseindices,
        &kyStrake::displayInfo,
        &kyStrake::inputNormals,
        &kyStrake::freezeMedian,
        &kyStrake::sizesShadow,
        &kyStrake::freepoints,
        &kyStrake::strokesShadow,
        &kyStrake::displaySize,
        &kyStrake::sizesNondestruct,
        &kyStrake::strokesNondestruct,
    };
    for (const MObject* attribute : order) MPxNode::addAttribute(*attribute);
}

// Dependencies that carry no computation: writing strokes, displayInfo or the shadow dirties
// `sizes`, and a dirty `sizes` is what redraws the node. The cycle between newFaces and the shadow
// is harmless because nothing is ever computed.
MStatus addDirtyPropagation() {
    const std::pair<const MObject*, const MObject*> affects[] = {
        {&kyStrake::strokes, &kyStrake::sizes},          {&kyStrake::strokes, &kyStrake::newFaces},
        {&kyStrake::kyStrakeMesh, &kyStrake::sizes},     {&kyStrake::tweakRadius, &kyStrake::kyStrakeMesh},
        {&kyStrake::strokes, &kyStrake::kyStrakeMesh},   {&kyStrake::displayInfo, &kyStrake::strokes},
        {&kyStrake::strokes, &kyStrake::freepoints},     {&kyStrake::newFaces, &kyStrake::sizesShadow},
        {&kyStrake::newFaces, &kyStrake::strokesShadow}, {&kyStrake::playervtx, &kyStrake::strokesShadow},
        {&kyStrake::sizesShadow, &kyStrake::newFaces},   {&kyStrake::strokesShadow, &kyStrake::newFaces},
        {&kyStrake::verticestweak, &kyStrake::newFaces},
    };
    MStatus status;
    for (const auto& [source, affected] : affects) status = MPxNode::attributeAffects(*source, *affected);
    return status;
}

}  // namespace

kyStrake::kyStrake() = default;

kyStrake::~kyStrake() = default;

void* kyStrake::creator() { return new kyStrake(); }

MStatus kyStrake::initialize() {
    createAttributes();
    setDisplayMinimum(radiusMoveInteractive);
    setDisplayMinimum(radiusRelaxInteractive);
    setDisplayMinimum(intensityRelaxInteractive);
    MFnGenericAttribute(kyStrakeMesh).addDataAccept(MFnData::kMesh);
    addAttributes();
    return addDirtyPropagation();
}

MStatus kyStrake::compute(const MPlug& plug, MDataBlock&) {
    if (plug == strokes) return MS::kSuccess;
    return MS::kUnknownParameter;
}

MStatus kyStrake::preEvaluation(const MDGContext& context, const MEvaluationNode& evaluationNode) {
    if (context.isNormal() && evaluationNode.dirtyPlugExists(sizes))
        MHWRender::MRenderer::setGeometryDrawDirty(thisMObject(), true);
    return MS::kSuccess;
}

bool kyStrake::isBounded() const { return false; }
