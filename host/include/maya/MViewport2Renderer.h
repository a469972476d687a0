#pragma once
// MHWRender::MRenderer and the draw APIs: the Viewport 2.0 renderer, of which the host keeps only the
// requests to redraw a node's geometry.

#include <maya/MDagPath.h>
#include <maya/MFrameContext.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>
#include <maya/MUIDrawManager.h>

namespace MHWRender {

// The graphics APIs a draw override may support, as bit flags. The host draws as an OpenGL core
// profile device.
enum DrawAPI {
    kNone = 0,
    kOpenGL = 1 << 0,
    kDirectX11 = 1 << 1,
    kOpenGLCoreProfile = 1 << 2,
    kAllDevices = kOpenGL | kDirectX11 | kOpenGLCoreProfile
};

// The union of two sets of draw APIs, still a DrawAPI.
inline DrawAPI operator|(DrawAPI a, DrawAPI b) {
    return static_cast<DrawAPI>(static_cast<unsigned int>(a) | static_cast<unsigned int>(b));
}

class OPENMAYARENDER_EXPORT MRenderer {
public:
    // The one renderer of the process.
    static MRenderer* theRenderer(bool initializeRenderer = true);
    // Asks for the node's draw data to be prepared again; the host records the request (the driver
    // reads it) and prepares every drawn node on every frame anyway.
    static void setGeometryDrawDirty(MObject obj, bool topologyChanged = true);
    // The API the host draws with: kOpenGLCoreProfile.
    DrawAPI drawAPI() const;

private:
    MRenderer();
    ~MRenderer();
    MRenderer(const MRenderer&);
    MRenderer& operator=(const MRenderer&);
};

}  // namespace MHWRender
