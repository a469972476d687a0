#include <maya/MPxDrawOverride.h>

namespace MHWRender {

MPxDrawOverride::MPxDrawOverride(const MObject&, GeometryDrawOverrideCb, bool) {}
MPxDrawOverride::~MPxDrawOverride() = default;
const char* MPxDrawOverride::className() { return "MPxDrawOverride"; }

DrawAPI MPxDrawOverride::supportedDrawAPIs() const { return kOpenGL; }
bool MPxDrawOverride::hasUIDrawables() const { return false; }
MBoundingBox MPxDrawOverride::boundingBox(const MDagPath&, const MDagPath&) const { return MBoundingBox(); }
bool MPxDrawOverride::isBounded(const MDagPath&, const MDagPath&) const { return false; }
void MPxDrawOverride::addUIDrawables(const MDagPath&, MUIDrawManager&, const MFrameContext&,
                                     const MUserData*) {}

}  // namespace MHWRender
