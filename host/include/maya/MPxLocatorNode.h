#pragma once
// MPxLocatorNode: the base of a plug-in locator, a DAG shape with no geometry of its own that is
// drawn by code (in viewport 2.0, by a draw override registered for its classification). A type
// registered with MPxNode::kLocatorNode answers to MFn::kPluginLocatorNode (and kPluginDependNode)
// and gets, besides the DAG attributes, the locator's own "localPosition" and "localScale".

#include <maya/M3dView.h>
#include <maya/MBoundingBox.h>
#include <maya/MObject.h>
#include <maya/MPxNode.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MDagPath;
class MPoint;
class MVector;

class OPENMAYAUI_EXPORT MPxLocatorNode : public MPxNode {
public:
    MPxLocatorNode();
    ~MPxLocatorNode() override;
    // kLocatorNode.
    MPxNode::Type type() const override;
    // Drawing for the legacy viewport; the host's view is a viewport 2.0 view and never calls it.
    virtual void draw(M3dView& view, const MDagPath& path, M3dView::DisplayStyle style,
                      M3dView::DisplayStatus);
    // Whether boundingBox() holds the locator's extent (object space); the base has no bounds: false
    // and an empty box.
    virtual bool isBounded() const;
    virtual MBoundingBox boundingBox() const;
    // Whether the locator hides with Maya's "show locators" filter off; the base answers true.
    virtual bool excludeAsLocator() const;
    // Drawing hints: transparency, and drawing after the other objects. The base answers false.
    virtual bool isTransparent() const;
    virtual bool drawLast() const;
    // Selection by closest point instead of by drawn pixels; the base answers false, and its
    // closestPoint gives the ray's own point.
    virtual bool useClosestPointForSelection() const;
    virtual MPoint closestPoint(MPoint cursorRayPoint, MVector cursorRayDir) const;

    // The locator's position and scale within its transform (k3Double; scale defaults to 1).
    static MObject localPosition;
    static MObject localPositionX;
    static MObject localPositionY;
    static MObject localPositionZ;
    static MObject localScale;
    static MObject localScaleX;
    static MObject localScaleY;
    static MObject localScaleZ;
    static const char* className();
};
