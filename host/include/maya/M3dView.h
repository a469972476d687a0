#pragma once
// M3dView: a 3D view of the scene, Maya's model panel. The headless host has one view, the active
// one, whose size and camera the driver sets (mhost/Interaction.h). View coordinates are pixels with
// the origin at the bottom left of the port, as in Maya.

#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MDagPath;
class MPoint;
class MVector;

class OPENMAYAUI_EXPORT M3dView {
public:
    enum DisplayStyle { kBoundingBox, kFlatShaded, kGouraudShaded, kWireFrame, kPoints };
    enum DisplayStatus {
        kActive,
        kLive,
        kDormant,
        kInvisible,
        kHilite,
        kTemplate,
        kActiveTemplate,
        kActiveComponent,
        kLead,
        kIntermediateObject,
        kActiveAffected,
        kNoStatus
    };

    // A view object attached to no view: its queries fail with kFailure until it is assigned one.
    M3dView();
    M3dView(const M3dView& other);
    M3dView& operator=(const M3dView& other);
    virtual ~M3dView();
    // The active view. Never fails in the headless host, which always has one.
    static M3dView active3dView(MStatus* ReturnStatus = NULL);
    // The port size in pixels; 0 (and kFailure) for an unattached view object.
    int portWidth(MStatus* ReturnStatus = NULL);
    int portHeight(MStatus* ReturnStatus = NULL);
    // The path of the camera shape the view looks through; kFailure when the view has none.
    MStatus getCamera(MDagPath& camera);
    // Looks through the camera at the end of `camera` (a camera shape, or a transform directly above
    // exactly one); kInvalidParameter for anything else.
    MStatus setCamera(MDagPath& camera);
    // Ask for the view to be drawn again. The headless host draws frames only when its driver asks,
    // so these only count the requests (mhost::driver::viewRefreshCount).
    MStatus scheduleRefresh();
    MStatus refresh(bool all = false, bool force = false);
    MStatus refresh(bool all, bool force, bool offscreen);
    // The ray under a view position: its point on the near clip plane and its unit direction, world
    // space. kFailure when the view has no camera.
    MStatus viewToWorld(short x_pos, short y_pos, MPoint& worldPt, MVector& worldVector) const;
    // The same ray as its points on the near and far clip planes.
    MStatus viewToWorld(short x_pos, short y_pos, MPoint& nearClipPt, MPoint& farClipPt) const;
    // The view position of a world point, rounded to the nearest pixel (clamped to the range of
    // short). Returns whether the point is visible: its pixel inside the port (0..width, 0..height)
    // and its depth between the clip planes. The position is written for invisible points too;
    // kFailure (and false) without a camera.
    bool worldToView(const MPoint& worldPt, short& x_pos, short& y_pos, MStatus* ReturnStatus = NULL) const;
    static const char* className();

private:
    bool fAttached;
};
