#pragma once
// kyStrakeDrawOverride: the Viewport 2.0 drawing of the kyStrake locator. Nothing the tool shows is
// real geometry: strokes, rows, previews, markers and the two text blocks are drawn here from the
// locator's attributes. Each frame prepareForDraw copies those attributes into the fields below and
// addUIDrawables draws them; what is on the node is what is on the screen.

#include <maya/MDagPath.h>
#include <maya/MFrameContext.h>
#include <maya/MIntArray.h>
#include <maya/MMessage.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MPxDrawOverride.h>
#include <maya/MUIDrawManager.h>
#include <maya/MUserData.h>
#include <maya/MVector.h>
#include <maya/MViewport2Renderer.h>

class kyStrake;

class kyStrakeDrawOverride : public MHWRender::MPxDrawOverride {
public:
    // Allocates the override of the locator `obj` for the host, which owns it from then on.
    static MHWRender::MPxDrawOverride* creator(const MObject& obj);

    // Forgets the locator before removing the editor callback, so a callback in flight does nothing.
    ~kyStrakeDrawOverride() override;

    // Every device: the drawing uses UI primitives only.
    MHWRender::DrawAPI supportedDrawAPIs() const override;
    // True: everything is drawn in addUIDrawables.
    bool hasUIDrawables() const override;
    // False: the feedback is drawn whatever the camera frames.
    bool isBounded(const MDagPath& objPath, const MDagPath& cameraPath) const override;
    // Copies the locator's attributes into the fields; a failed read keeps the field's last value.
    // Returns `oldData` as it came: the override keeps its data itself and never makes user data.
    MUserData* prepareForDraw(const MDagPath& objPath, const MDagPath& cameraPath,
                              const MHWRender::MFrameContext& frameContext, MUserData* oldData) override;
    // Draws the cached fields, in the active view only. Each feedback routine runs on its own
    // condition, in a fixed order that decides what lies on top at equal depth priority.
    void addUIDrawables(const MDagPath& objPath, MHWRender::MUIDrawManager& drawManager,
                        const MHWRender::MFrameContext& frameContext, const MUserData* data) override;

private:
    explicit kyStrakeDrawOverride(const MObject& obj);

    // "modelEditorChanged": asks the host to redraw the locator (client data: the override).
    static void onModelEditorChanged(void* clientData);

    // The feedback routines, one per kind of feedback, grouped by theme in their own sources.
    // The brush circle and its readout (displayInfo 2 to 4), facing `viewDirection`.
    void drawBrushPreview(MHWRender::MUIDrawManager& manager, const MVector& viewDirection) const;
    // The selected row as numbered end markers, its point count, and the arrow of a closed row.
    void drawPlayers(MHWRender::MUIDrawManager& manager) const;
    // The strokes on the node, numbered, dashed by pairs, with marked ends.
    void drawStrokes(MHWRender::MUIDrawManager& manager) const;
    // The one or two magnet vertices and the link between them.
    void drawMagnet(MHWRender::MUIDrawManager& manager) const;
    // The bridge or merge to come: its outline, links to the row, its faces and division lines.
    void drawFusePreview(MHWRender::MUIDrawManager& manager) const;
    // The rows of the last patch, their points numbered.
    void drawShadow(MHWRender::MUIDrawManager& manager) const;
    // Markers of the frozen border vertices.
    void drawFreeBorder(MHWRender::MUIDrawManager& manager) const;
    // The move brush's tweak circle.
    void drawTweakCircle(MHWRender::MUIDrawManager& manager) const;
    // Normals of the last patch's vertices. Walks the retopo mesh: O(vertices of the patch).
    void drawNormals(MHWRender::MUIDrawManager& manager) const;
    // Markers of the vertices held on the symmetry median.
    void drawFreezeMedian(MHWRender::MUIDrawManager& manager) const;
    // A faint plane through the source mesh's bounding box centre.
    void drawSymmetryPlane(MHWRender::MUIDrawManager& manager) const;
    // The player row as a line.
    void drawPlayersLine(MHWRender::MUIDrawManager& manager) const;
    // The help text at the top left and the status text at the bottom left of a viewport
    // `viewportHeight` pixels high.
    void drawHudText(MHWRender::MUIDrawManager& manager, int viewportHeight) const;

    // Round markers at the view positions of `points`: a filled disc of `fill`, an outline of black.
    void drawFrozenMarkers(MHWRender::MUIDrawManager& manager, const MPointArray& points, const MColor& fill,
                           double radius) const;

    // Each field caches the locator attribute of its name.
    MPointArray pointsDebug;
    MPoint sparePoint;  // kept for the override's layout; nothing reads it
    MPointArray playersLine;
    MPointArray playerpts;
    MIntArray sizes;
    MPointArray strokes;
    MPointArray fusemesh;
    MPointArray sublines;
    MPointArray magnetPt;
    MPointArray fusept;
    MIntArray fuseindices;
    MPointArray freezeMedian;
    MPointArray freepoints;
    MPointArray strokesShadow;
    MPointArray verticestweak;
    MIntArray sizesShadow;
    double radiusMoveInteractive = 0.0;
    double radiusRelaxInteractive = 0.0;
    double intensityRelaxInteractive = 0.0;
    double displaySize = 0.0;
    MPoint interPoint;
    MVector interNormal;
    int symmetry = 0;
    int displayInfo = 0;
    int mode = 0;
    MIntArray tweakRadius;
    // The drawn node's user node; null when it is not a kyStrake. Only the callback uses it.
    kyStrake* locator = nullptr;
    MCallbackId modelEditorCallbackId = 0;
};
