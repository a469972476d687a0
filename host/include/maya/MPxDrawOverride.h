#pragma once
// MHWRender::MPxDrawOverride: the base of a plug-in's Viewport 2.0 drawing for the nodes of a
// classification. The host creates one per drawn node through the creator registered with
// MDrawRegistry, keeps it while the node lives, and on every frame calls prepareForDraw and then,
// when hasUIDrawables says so, addUIDrawables.

#include <maya/MBoundingBox.h>
#include <maya/MDagPath.h>
#include <maya/MFrameContext.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MUIDrawManager.h>
#include <maya/MUserData.h>
#include <maya/MViewport2Renderer.h>

namespace MHWRender {

class MDrawContext;

class OPENMAYARENDER_EXPORT MPxDrawOverride {
public:
    // The custom draw callback of an override; the host draws no custom geometry and never calls it.
    typedef void (*GeometryDrawOverrideCb)(const MDrawContext&, const MUserData*);

    // `obj` is the node drawn; `isAlwaysDirty` asks for prepareForDraw on every frame (the host
    // prepares every frame whatever it says).
    MPxDrawOverride(const MObject& obj, GeometryDrawOverrideCb callback, bool isAlwaysDirty = true);
    virtual ~MPxDrawOverride();

    // The APIs the override can draw with, as DrawAPI bits; kOpenGL unless overridden. The host
    // skips an override that lacks kOpenGLCoreProfile.
    virtual DrawAPI supportedDrawAPIs() const;
    // Whether the host should call addUIDrawables; false unless overridden.
    virtual bool hasUIDrawables() const;
    // Object-space bounds of what is drawn; used only when isBounded is true. Empty unless overridden.
    virtual MBoundingBox boundingBox(const MDagPath& objPath, const MDagPath& cameraPath) const;
    // Whether the node may be culled when its bounds are out of view; false unless overridden.
    virtual bool isBounded(const MDagPath& objPath, const MDagPath& cameraPath) const;
    // Pulls what the frame needs from the node. `oldData` is what the previous call returned (null at
    // first); the host owns what is returned and deletes the old data when it is replaced.
    virtual MUserData* prepareForDraw(const MDagPath& objPath, const MDagPath& cameraPath,
                                      const MFrameContext& frameContext, MUserData* oldData) = 0;
    // Draws UI primitives for the node through `drawManager`, with the data prepareForDraw returned.
    virtual void addUIDrawables(const MDagPath& objPath, MUIDrawManager& drawManager,
                                const MFrameContext& frameContext, const MUserData* data);
    static const char* className();

private:
    MPxDrawOverride(const MPxDrawOverride&);
    MPxDrawOverride& operator=(const MPxDrawOverride&);
};

}  // namespace MHWRender
