#include "nodes/kyTweakNode.h"

#include <maya/MDataHandle.h>
#include <maya/MFnData.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnGenericAttribute.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MGlobal.h>
#include <maya/MItGeometry.h>
#include <maya/MNodeMessage.h>
#include <maya/MPlugArray.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MRichSelection.h>
#include <maya/MSelectionList.h>
#include <maya/MUuid.h>

#include <initializer_list>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"

MTypeId kyTweakNode::id(0x80032);

MObject kyTweakNode::scanMesh;
MObject kyTweakNode::lowMesh;
MObject kyTweakNode::kyTweakEval;
MObject kyTweakNode::threshold;
MObject kyTweakNode::selectionAttr;

namespace {

constexpr const char* kyErrorStem = "kyTweakNode";

// How far from a vertex the closest point may lie, in the scan mesh's object space. The node's
// `threshold` attribute is not consulted: this constant is the reach.
const double kSnapReach = 99.0;

// The attribute-changed callback does nothing; registering it is all the node asks for.
void onAttributeChanged(MNodeMessage::AttributeMessage, MPlug&, MPlug&, void*) {}

// A hidden generic attribute that takes mesh data.
MObject meshInput(const char* longName, const char* shortName) {
    MStatus status;
    MFnGenericAttribute generic;
    MObject attribute = generic.create(longName, shortName, &status);
    if (KY_REPORT_FAILURE(status)) return attribute;
    KY_REPORT_FAILURE(generic.addDataAccept(MFnData::kMesh));
    generic.setHidden(true);
    return attribute;
}

MObject doubleAttribute(const char* longName, const char* shortName, double defaultValue) {
    MStatus status;
    MFnNumericAttribute numeric;
    MObject attribute = numeric.create(longName, shortName, MFnNumericData::kDouble, defaultValue, &status);
    KY_REPORT_FAILURE(status);
    return attribute;
}

void createAttributes() {
    kyTweakNode::scanMesh = meshInput("scanMesh", "scn");
    kyTweakNode::lowMesh = meshInput("lowMesh", "low");

    kyTweakNode::kyTweakEval = doubleAttribute("kyTweakEval", "kt", 5.0);
    MFnNumericAttribute eval(kyTweakNode::kyTweakEval);
    eval.setStorable(false);
    eval.setHidden(true);

    kyTweakNode::threshold = doubleAttribute("threshold", "th", 100.0);
    MFnNumericAttribute(kyTweakNode::threshold).setStorable(true);

    MStatus status;
    MFnTypedAttribute typed;
    kyTweakNode::selectionAttr =
        typed.create("selectionAttr", "sl", MFnData::kPointArray, MObject::kNullObj, &status);
    if (KY_REPORT_FAILURE(status)) return;
    typed.setStorable(false);
    typed.setKeyable(true);
    typed.setHidden(false);
    typed.setCached(true);
}

// The node at the other end of the first incoming connection of `plug`; a null object when there
// is none.
MObject feedingNode(const MPlug& plug) {
    MPlugArray sources;
    plug.connectedTo(sources, true, false);
    return sources.length() > 0 ? sources[0].node() : MObject::kNullObj;
}

}  // namespace

kyTweakNode::kyTweakNode() : attrChangedCallbackId(0) {}

kyTweakNode::~kyTweakNode() = default;

void* kyTweakNode::creator() { return new kyTweakNode(); }

MStatus kyTweakNode::initialize() {
    createAttributes();
    MStatus status;
    // `threshold` stays out on purpose: a node has no such attribute.
    for (const MObject* attribute : {&lowMesh, &scanMesh, &kyTweakEval, &selectionAttr}) {
        status = addAttribute(*attribute);
        KY_REPORT_FAILURE(status);
    }
    for (const MObject* cause : {&lowMesh, &scanMesh, &selectionAttr}) {
        status = attributeAffects(*cause, kyTweakEval);
        KY_REPORT_FAILURE(status);
    }
    return status;
}

void kyTweakNode::postConstructor() {
    MObject self = thisMObject();
    MStatus status;
    attrChangedCallbackId =
        MNodeMessage::addAttributeChangedCallback(self, onAttributeChanged, this, &status);
    KY_REPORT_FAILURE(status);
}

MStatus kyTweakNode::connectionMade(const MPlug& plug, const MPlug& otherPlug, bool /*asSrc*/) {
    if (plug != scanMesh || intersector.isCreated()) return MS::kSuccess;
    MObject node = otherPlug.node();
    MDagPath path;
    MStatus status = MDagPath::getAPathTo(node, path);
    KY_REPORT_FAILURE(status);
    scanMatrix = path.inclusiveMatrix(&status);
    KY_REPORT_FAILURE(status);
    status = intersector.create(node, scanMatrix);
    KY_REPORT_FAILURE(status);
    return status;
}

MStatus kyTweakNode::compute(const MPlug& plug, MDataBlock& data) {
    MStatus status;
    if (plug == lowMesh) {
        status = data.setClean(lowMesh);
        if (!status) return status;
    }
    if (plug != kyTweakEval) return MS::kUnknownParameter;

    // Both inputs are pulled as transformed mesh data; the positions are read from the low handle.
    MDataHandle lowHandle = data.inputValue(lowMesh, &status);
    KY_RETURN_ON_FAILURE(status);
    lowHandle.asMeshTransformed();
    MDataHandle scanHandle = data.inputValue(scanMesh, &status);
    KY_RETURN_ON_FAILURE(status);
    scanHandle.asMeshTransformed();

    // The first item of the selection; soft-selection weights play no part.
    MRichSelection richSelection;
    status = MGlobal::getRichSelection(richSelection, true);
    KY_RETURN_ON_FAILURE(status);
    MSelectionList list;
    status = richSelection.getSelection(list);
    KY_RETURN_ON_FAILURE(status);
    MDagPath selectedPath;
    MObject component;
    status = list.getDagPath(0, selectedPath, component);
    KY_RETURN_ON_FAILURE(status);
    const MIntArray elements = selectionElements(component, status);

    if (!scanMatchesLocator() || !lowMatchesSelection(selectedPath)) return MS::kUnknownParameter;

    MItGeometry lowGeometry(lowHandle, true, &status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray positions;
    status = lowGeometry.allPositions(positions, MSpace::kWorld);
    KY_RETURN_ON_FAILURE(status);
    MPointArray result(positions);

    if (component.isNull()) return MS::kUnknownParameter;

    for (unsigned int i = 0; i < positions.length(); ++i) {
        if (!indexSelected(static_cast<int>(i), elements)) continue;
        MPointOnMesh pointOnMesh;
        status = intersector.getClosestPoint(positions[i], pointOnMesh, kSnapReach);
        KY_RETURN_ON_FAILURE(status);
        // The intersector answers in the scan mesh's object space; the matrix stored at connection
        // time takes the point to world space.
        result[i] = MPoint(pointOnMesh.getPoint()) * scanMatrix;
    }

    MPlugArray destinations;
    MPlug(thisMObject(), lowMesh).connectedTo(destinations, true, false);
    if (destinations.length() > 0) {
        MDagPath lowPath;
        status = MDagPath::getAPathTo(destinations[0].node(), lowPath);
        KY_RETURN_ON_FAILURE(status);
        MItGeometry lowShape(lowPath, &status);
        KY_RETURN_ON_FAILURE(status);
        status = lowShape.setAllPositions(result, MSpace::kWorld);
        KY_RETURN_ON_FAILURE(status);
    }
    return data.setClean(plug);
}

MIntArray kyTweakNode::selectionElements(const MObject& component, MStatus& status) const {
    MIntArray elements;
    MFnSingleIndexedComponent indexed(component, &status);
    if (status) status = indexed.getElements(elements);
    return elements;
}

bool kyTweakNode::indexSelected(int index, const MIntArray& elements) const {
    for (unsigned int i = 0; i < elements.length(); ++i) {
        if (elements[i] == index) return true;
    }
    return false;
}

bool kyTweakNode::scanMatchesLocator() const {
    const MPlug sourcePlug = MFnDependencyNode(findStrakeLocator()).findPlug("kyStrakeMesh", true);
    const MObject sourceNode = feedingNode(sourcePlug);
    const MObject scanNode = feedingNode(MPlug(thisMObject(), scanMesh));
    return MFnDependencyNode(sourceNode).name() == MFnDependencyNode(scanNode).name();
}

bool kyTweakNode::lowMatchesSelection(const MDagPath& path) const {
    MPlugArray connected;
    MPlug(thisMObject(), lowMesh).connectedTo(connected, true, true);
    if (connected.length() == 0) return false;
    MDagPath lowPath;
    MDagPath::getAPathTo(connected[0].node(), lowPath);
    return MFnDependencyNode(lowPath.node()).uuid() == MFnDependencyNode(path.node()).uuid();
}
