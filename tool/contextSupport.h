#pragma once
// Small helpers shared by the context's source files: the buttons and modifiers of an event, the
// miss value of the picks, and the active camera's directions.

#include <maya/M3dView.h>
#include <maya/MEvent.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

// The button and the two modifiers of a mouse event. "Alone" means the other modifier is not held.
struct GestureKeys {
    bool lmb = false;
    bool mmb = false;
    bool shift = false;
    bool ctrl = false;

    explicit GestureKeys(const MEvent& event);

    bool shiftAlone() const { return shift && !ctrl; }
    bool ctrlAlone() const { return ctrl && !shift; }
    bool noModifier() const { return !shift && !ctrl; }
    bool shiftAndCtrl() const { return shift && ctrl; }
};

// Every pick reports "no hit" as MPoint::origin, compared on all four components; a real hit
// exactly at the world origin therefore counts as a miss too.
inline bool isMiss(const MPoint& point) { return point == MPoint::origin; }

// The camera of `view`: its world view direction, world right direction and inclusive matrix.
MVector cameraViewDirection(M3dView& view);
MVector cameraRightDirection(M3dView& view);
MMatrix cameraMatrix(M3dView& view);

// Whether a normal faces the camera of `view`; every normal does with the option ky_strakeBackFace
// off. The option and the camera are read once, when the test is made, so that a pick can test
// thousands of vertices against them.
class BackFaceTest {
public:
    explicit BackFaceTest(M3dView& view);
    // Strictly below 0: a normal at right angles to the view counts as turned away.
    bool facesCamera(const MVector& normal) const { return !enabled_ || viewDirection_ * normal < 0.0; }

private:
    bool enabled_;
    MVector viewDirection_;
};
