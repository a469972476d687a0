#include <maya/MDagPath.h>
#include <maya/MPoint.h>
#include <maya/MPxLocatorNode.h>
#include <maya/MVector.h>

#include "graph/LocatorAttributes.h"

namespace {

MObject childOf(const mhost::AttributePtr& attribute, int component) {
    return MObject(attribute->children[component]);
}

}  // namespace

MObject MPxLocatorNode::localPosition(mhost::locatorAttributes().localPosition);
MObject MPxLocatorNode::localPositionX(childOf(mhost::locatorAttributes().localPosition, 0));
MObject MPxLocatorNode::localPositionY(childOf(mhost::locatorAttributes().localPosition, 1));
MObject MPxLocatorNode::localPositionZ(childOf(mhost::locatorAttributes().localPosition, 2));
MObject MPxLocatorNode::localScale(mhost::locatorAttributes().localScale);
MObject MPxLocatorNode::localScaleX(childOf(mhost::locatorAttributes().localScale, 0));
MObject MPxLocatorNode::localScaleY(childOf(mhost::locatorAttributes().localScale, 1));
MObject MPxLocatorNode::localScaleZ(childOf(mhost::locatorAttributes().localScale, 2));

MPxLocatorNode::MPxLocatorNode() = default;
MPxLocatorNode::~MPxLocatorNode() = default;
const char* MPxLocatorNode::className() { return "MPxLocatorNode"; }

MPxNode::Type MPxLocatorNode::type() const { return kLocatorNode; }
void MPxLocatorNode::draw(M3dView&, const MDagPath&, M3dView::DisplayStyle, M3dView::DisplayStatus) {}
bool MPxLocatorNode::isBounded() const { return false; }
MBoundingBox MPxLocatorNode::boundingBox() const { return MBoundingBox(); }
bool MPxLocatorNode::excludeAsLocator() const { return true; }
bool MPxLocatorNode::isTransparent() const { return false; }
bool MPxLocatorNode::drawLast() const { return false; }
bool MPxLocatorNode::useClosestPointForSelection() const { return false; }
MPoint MPxLocatorNode::closestPoint(MPoint cursorRayPoint, MVector) const { return cursorRayPoint; }
