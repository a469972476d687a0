#include <maya/M3dView.h>
#include <maya/MDagPath.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "core/ReturnStatus.h"
#include "interaction/ActiveView.h"

namespace {

using mhost::report;

short toShort(double value) {
    const double lowest = std::numeric_limits<short>::min();
    const double highest = std::numeric_limits<short>::max();
    return static_cast<short>(std::clamp(std::round(value), lowest, highest));
}

// The active view's projection, when the view object is attached and the view has a camera.
bool projectionOf(bool attached, std::optional<mhost::ViewProjection>& projection) {
    if (!attached) return false;
    try {
        projection.emplace(mhost::activeView().projection());
        return true;
    } catch (const mhost::HostError&) {
        return false;
    }
}

}  // namespace

M3dView::M3dView() : fAttached(false) {}
M3dView::M3dView(const M3dView& other) = default;
M3dView& M3dView::operator=(const M3dView& other) = default;
M3dView::~M3dView() = default;
const char* M3dView::className() { return "M3dView"; }

M3dView M3dView::active3dView(MStatus* ReturnStatus) {
    report(ReturnStatus, MS::kSuccess);
    M3dView view;
    view.fAttached = true;
    return view;
}

int M3dView::portWidth(MStatus* ReturnStatus) {
    report(ReturnStatus, fAttached ? MS::kSuccess : MS::kFailure);
    return fAttached ? mhost::activeView().width() : 0;
}

int M3dView::portHeight(MStatus* ReturnStatus) {
    report(ReturnStatus, fAttached ? MS::kSuccess : MS::kFailure);
    return fAttached ? mhost::activeView().height() : 0;
}

MStatus M3dView::getCamera(MDagPath& camera) {
    if (!fAttached || !mhost::activeView().camera()) return MS::kFailure;
    camera = mhost::activeView().cameraPath();
    return MS::kSuccess;
}

MStatus M3dView::setCamera(MDagPath& camera) {
    if (!fAttached) return MS::kFailure;
    MDagPath shape(camera);
    if (!shape.extendToShape() || !shape.hasFn(MFn::kCamera)) return MS::kInvalidParameter;
    mhost::activeView().setCamera(shape.hostNodes().back());
    return MS::kSuccess;
}

MStatus M3dView::scheduleRefresh() { return refresh(); }

MStatus M3dView::refresh(bool all, bool force) { return refresh(all, force, false); }

MStatus M3dView::refresh(bool, bool, bool) {
    if (!fAttached) return MS::kFailure;
    mhost::activeView().noteRefresh();
    return MS::kSuccess;
}

MStatus M3dView::viewToWorld(short x_pos, short y_pos, MPoint& worldPt, MVector& worldVector) const {
    MPoint farPoint;
    const MStatus status = viewToWorld(x_pos, y_pos, worldPt, farPoint);
    if (status) worldVector = (farPoint - worldPt).normal();
    return status;
}

MStatus M3dView::viewToWorld(short x_pos, short y_pos, MPoint& nearClipPt, MPoint& farClipPt) const {
    std::optional<mhost::ViewProjection> projection;
    if (!projectionOf(fAttached, projection)) return MS::kFailure;
    projection->ray(x_pos, y_pos, nearClipPt, farClipPt);
    return MS::kSuccess;
}

bool M3dView::worldToView(const MPoint& worldPt, short& x_pos, short& y_pos, MStatus* ReturnStatus) const {
    std::optional<mhost::ViewProjection> projection;
    const bool ok = projectionOf(fAttached, projection);
    report(ReturnStatus, ok ? MS::kSuccess : MS::kFailure);
    if (!ok) return false;
    const mhost::PortPoint point = projection->toPort(worldPt);
    x_pos = toShort(point.x);
    y_pos = toShort(point.y);
    return projection->isWithinClipPlanes(point.depth) && x_pos >= 0 && x_pos <= projection->width() &&
           y_pos >= 0 && y_pos <= projection->height();
}
