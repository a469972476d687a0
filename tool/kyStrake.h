#pragma once
// kyStrakeContext: the interactive retopology tool. The host keeps one instance alive while the
// artist works and hands it every mouse gesture and the ENTER, ESC and BACKSPACE keys. The context
// holds only what is transient (the stroke under way, the anchors, the picking accelerators, the
// staged undo states and the gesture flags); everything that must outlive a gesture or be drawn
// lives on the kyStrake locator and is looked up again at each use.
//
// The context command (kyStrakeContextCmd) creates the instance in makeObj and edits its public
// state between gestures, which is why the state below is public.

#include <maya/M3dView.h>
#include <maya/MDagPath.h>
#include <maya/MEvent.h>
#include <maya/MFnMesh.h>
#include <maya/MFrameContext.h>
#include <maya/MIntArray.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MMatrix.h>
#include <maya/MMeshIntersector.h>
#include <maya/MMessage.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MPxContext.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MUIDrawManager.h>

#include <vector>

#include "patch/undoStates.h"

class kyStrakeToolCmd;
struct GestureKeys;

class kyStrakeContext : public MPxContext {
public:
    // Sets every field to its starting value and touches nothing in the scene, so that the
    // context command can create the context at any time.
    kyStrakeContext();
    // Frees what the context owns; the event callbacks are removed by toolOffCleanup.
    ~kyStrakeContext() override;
    kyStrakeContext(const kyStrakeContext&) = delete;
    kyStrakeContext& operator=(const kyStrakeContext&) = delete;

    // Activation: resets the gesture flags, subscribes to the "Undo" and "ToolChanged" events,
    // selects the retopo mesh alone, builds the picking accelerators on the source mesh the first
    // time, and shows the help and status texts. A failing step is reported and setup goes on.
    void toolOnSetup(MEvent& event) override;
    // Leaving the tool: clears the tool's data from the locator, removes the callbacks, releases
    // the panel buttons and blanks both texts.
    void toolOffCleanup() override;

    // The gesture dispatch. Each handler tests button, modifiers and flags in a fixed order; the
    // first test that takes the event decides what the gesture means.
    MStatus doPress(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                    const MHWRender::MFrameContext& frameContext) override;
    MStatus doRelease(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                      const MHWRender::MFrameContext& frameContext) override;
    MStatus doDrag(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                   const MHWRender::MFrameContext& frameContext) override;
    // Once per viewport frame: keeps the freeze markers up to date and dirties the locator while
    // the camera moves, so that its drawing follows the view.
    MStatus drawFeedback(MHWRender::MUIDrawManager& drawManager,
                         const MHWRender::MFrameContext& frameContext) override;
    // Pointer moves with no button: the hover pick under the pointer and the glue marker.
    MStatus doPtrMoved(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                       const MHWRender::MFrameContext& frameContext) override;
    // BACKSPACE: drops the last stroke, or else steps the anchor selection back.
    void deleteAction() override;
    // ENTER: applies a pending bridge or merge, or ends the stroke set or the row.
    void completeAction() override;
    // ESC: clears the tool's data and says so.
    void abortAction() override;

    // --- Activation and source mesh -----------------------------------------------------------

    // Refreshes meshValid and meshIsMesh from the locator's source connection. kInvalidParameter
    // when nothing valid is connected, kUnknownParameter when it is no mesh.
    MStatus checkSourceMesh();
    // Builds the closest-point accelerator and the ray grid parameters on the source mesh and
    // writes the per-face mean normals to the locator's inputNormals. O(faces).
    MStatus rebuildAccelerators();
    // Writes the activation status and the starting help, with a hint to delete history when the
    // retopo mesh has more than 100 history nodes.
    void historyHint();

    // True for the rectangle and circle figures, whose strokes are closed.
    bool isClosedFigure() const;
    // True when the spans drag has moved the pointer away from the press column.
    bool hasDragged() const;
    // True when an opposite row has been chosen for a bridge or merge.
    bool isBridgeReady() const;

    // --- Picking (the miss value of every point pick is MPoint::origin) -------------------------

    // The source surface under pixel (x, y): the first of the sorted hits, testing both ray
    // directions. With glue on and a glued vertex stored, a stroke's first point is that vertex
    // and no ray is cast. Returns whether there was a hit; `hit` is the origin on a miss.
    bool sourceHitAt(short x, short y, MPoint& hit);
    // Hover pick under the event's position, on the source mesh with glue on, else on the retopo
    // mesh. Updates currentX/Y, the glued vertex, and with `writeAttribute` the locator's
    // interPoint.
    void hoverPick(MEvent& event, const MHWRender::MFrameContext& frameContext, bool writeAttribute);
    // World position of the corner of source face `face` nearest to `reference` in view pixels;
    // `reference` itself when the face has no corner.
    MPoint nearestFaceVertex(int face, const MPoint& reference);
    // The through pick of slices: the nearest hit on a face turned to the eye, or the origin.
    // Every front hit that improves on the nearest goes to frontHits, every other hit to backHits.
    MPoint pickFrontBack(const MPoint& screenPoint);
    // Pulls every point back onto the source along its line from the eye, taking the farthest of
    // the sorted hits within reach 100; a point with no hit is dropped. One ray per point.
    void reprojectStroke(MPointArray& points);
    // Replaces each point by its closest point on the source mesh. Creates the closest-point
    // accelerator first when there is none, so an empty array only makes sure it exists.
    MStatus snapToSource(MPointArray& points);
    // Relax pick: vertices of `retopo` within `radius` of the hit under the pointer, object space,
    // radius inclusive. Falls back on the source surface when the pointer misses the retopo mesh.
    // `normal` receives the hit face's world normal. Returns a vertex component (null or empty
    // when nothing is taken).
    MObject pickVerticesAround(double radius, const MDagPath& retopo, MVector& normal);
    // Relax pick around the source hit, world space, radius exclusive; `normal` receives the last
    // vertex normal read.
    MObject pickVerticesAroundSource(double radius, const MDagPath& retopo, MVector& normal);
    // Move brush pick at the press pixel: the vertices within `radius`, their start positions in
    // moveAnchors and their parabolic weights in moveWeights, both in component order.
    MObject pickWeightedAround(double radius, const MDagPath& retopo);
    // The same around the source hit when the press misses the retopo mesh, world space.
    MObject pickWeightedAroundSource(double radius, const MDagPath& retopo);
    // The first retopo vertex, in index order, within `radius` pixels of the pointer (the current
    // position with `useCurrentPosition`, else the press) that faces the camera and lies on a
    // border. -1 when none.
    int pickBoundaryVertex(double radius, bool useCurrentPosition);
    // Whether source face `face` fronts `eye`; `faces` is an iterator on the source mesh.
    bool faceFrontsEye(int face, const MPoint& eye, MItMeshPolygon& faces);

    // --- Stroke capture -----------------------------------------------------------------------

    // One LMB drag event's work on the stroke: adds or rebuilds strokePoints by figure, pulls it
    // back onto the source, and returns the points the patch preview shows (empty without a row).
    MPointArray captureStrokePoint(const MPoint& hit, MEvent& event);
    // The lazy filter: smooths the tail of strokePoints in place, per the ky_lazy* options.
    void lazySmooth();
    // Closed rectangle from pressPoint to `corner`, its sides along the camera's right direction.
    MPointArray figureRectangle(const MPoint& corner);
    // Closed circle around pressPoint through `rim`, in the camera's plane.
    MPointArray figureCircle(const MPoint& rim);
    // Maps a closed figure onto the player row: starts it at the point nearest to the pointer and
    // walks it, in the direction that agrees with the figure, at the row's spacing.
    MPointArray alignFigureToRow(const MPointArray& figurePoints, const MIntArray& rowVertices);
    // The patch preview: the stroke against the row, with the band of quads between them.
    MStatus drawStrokeGuide(MHWRender::MUIDrawManager& drawManager, const MPointArray& points);
    // The stroke under way with its spinning cursor at `point` and `text` in the view's corner.
    MStatus drawStrokeCursor(MHWRender::MUIDrawManager& drawManager, const MPoint& point,
                             const MString& text);
    // Marks the glued vertex under the pointer.
    void drawGlueMarker(MHWRender::MUIDrawManager& drawManager);
    // Appends the finished stroke to the locator when the source is a valid mesh and the stroke
    // has more than one point. Always succeeds.
    MStatus commitStroke();

    // --- Flows behind keys and releases -------------------------------------------------------

    // Empties the locator's strokes, rows, previews and markers and the context's anchors, then
    // shows the activation texts. Success and no change with no locator.
    MStatus clearToolData();
    // Forgets the anchors and the opposite row, on the context and on the locator.
    MStatus clearAnchors();
    // Ends the row: clears anchors, new faces and strokes.
    void finishRow();
    // Steps the anchor selection back by one anchor.
    MStatus deleteLastAnchor();
    // World positions of the player row on the retopo mesh.
    MPointArray rowPositions(MStatus& status);
    // The patch flows behind a release, ENTER and the MMB-SHIFT drag: a strake patch on the player
    // row, a bridge stroke, the scratch patch from the strokes, a bridge or merge of two borders,
    // the CTRL redraws, the end of a relax stroke, and the interactive spans and divisions.
    MStatus applyStrakePatch();
    MStatus applyBridgeStroke();
    MStatus applyScratch();
    MStatus applyBridge(const MDagPath& retopo);
    MStatus applyMerge(const MDagPath& retopo);
    MStatus redrawFromShadow();
    MStatus redrawFromPlayerRow();
    MStatus flushRelax();
    void spansDrag(bool keepPinch);
    void divisionsDrag();

    // --- Undo staging -------------------------------------------------------------------------

    // Snapshots the whole retopo mesh into the "redo" (before) or "undo" (after) slot.
    MStatus takeSnapshot(const MString& label);
    // Reads the player ids and the three rows into the "redo" or "undo" slot.
    MStatus saveRows(const MString& label);
    // All world positions of the retopo mesh, before a point-only edit.
    MStatus savePositions();
    // Hands the staged rows to `cmd`.
    void flushRowIds(kyStrakeToolCmd* cmd);

    // --- Anchors, brushes, slices and freezing ------------------------------------------------

    // Anchor rows on the retopo mesh's borders: the anchors and their row, the opposite row of a
    // bridge or merge, the magnet pair, and the row of vertices between anchor edges.
    MStatus selectPoints();
    MStatus selectOppositeRow(int vertex);
    MStatus selectMagnetVertex();
    MStatus selectMergeRow();
    MStatus updateMagnetPoints();
    MStatus mergeMagnetVertices();
    MIntArray edgesToVertices(const MIntArray& edges, int startVertex);
    MStatus updateSublines();
    // Border walks on the retopo mesh (getActiveMeshPath) through its vertex and edge iterators,
    // returning edge ids in walking order. Each walk gives up after 999 steps, so a longer border
    // yields an empty or partial list. The closed border through `vertex`, or empty:
    static MIntArray boundaryLoopFrom(int vertex);
    // The border from `startEdge` away from `excludedEdge` until an edge touches `target`; `found`
    // tells whether one did. The list is returned either way.
    static MIntArray walkBoundary(int target, int startEdge, int excludedEdge, bool& found);
    // The shorter of the two border walks from `from` to `to`, the side of the first border edge at
    // `from` on a tie, only when shorter than `limit`. Five zeros without a retopo mesh.
    static MIntArray shortestBoundaryPath(int from, int to, int limit);
    // Walks from the first edge of `edges` in the direction they took until an edge touches `to`,
    // so that a re-picked second anchor slides along the same side of the border.
    static MIntArray extendBoundaryPath(const MIntArray& edges, int from, int to);
    // The opposite row from border vertex `vertex`, as long as the anchor row at most, walked the
    // way pickRowDirection (and reverseBridge) says. Sets oppositeEdges; empty with no anchors.
    MIntArray walkOppositeRow(int vertex);
    // Of two border edges sharing a vertex, the one that runs more along the anchor row's first
    // edge; 0 when there is no row of two vertices.
    int pickRowDirection(int edgeA, int edgeB);
    // Writes the bridge or merge preview (fusept, fusemesh, fuseindices, mode, then sublines) from
    // the player row and the opposite row; mode 1 turns -1 when the two rows share a vertex.
    MStatus rebuildBridgePreview(int mode);
    // -bevel: cuts one edge loop next to row 1 and one next to row 2 inside the last patch's faces,
    // as polySplitRing text handed to a tool command (operation 10). kInvalidParameter, with no
    // command made, when there is no strake or the two rows have different rung counts.
    MStatus bevelRing();
    // The rung edges of `faces` that leave `row` on the retopo mesh, in row order: per row vertex,
    // the edges of its faces that touch it and not the next row vertex. Edge ids of `retopo`.
    static MIntArray ringEdges(const MIntArray& row, const MIntArray& faces, const MDagPath& retopo);
    // Arms the relax brush: its pass strength is `intensity` x 6, and the status line shows the
    // option-scale values.
    void setRelaxBrush(double intensity, double radius);
    // The relax and move brushes, one drag event or one press and release at a time.
    MStatus relaxDrag(MHWRender::MUIDrawManager& drawManager);
    MStatus moveBrushStart(const MDagPath& retopo);
    MStatus moveBrushDrag();
    MStatus moveBrushRelease();
    void drawMoveHover(MHWRender::MUIDrawManager& drawManager);
    // One relax pass over the vertices of `component` on `retopo`, in index order, each written at
    // once: a vertex sees the new positions of those before it. Ends with a view refresh.
    MStatus relaxSelection(const MObject& component, const MDagPath& retopo);
    // The relax brush's circle at brushCenter, facing `normal`, at the option's radius.
    void drawRelaxCircle(MHWRender::MUIDrawManager& drawManager, const MVector& normal);
    // The move brush's world displacement for the current pixel; `nearPoint` receives the press
    // ray's near point, which the displacement is measured from.
    MVector moveDragVector(MPoint& nearPoint);
    // Writes the locator's tweakRadius: empty with `clear`, else (ky_strakeTweakR, currentX,
    // currentY).
    MStatus setTweakRadius(bool clear);
    // One drag event of a slice stroke (LMB with SHIFT, no player row): gathers the front and back
    // hits under the pointer, or under every sample of the figure, and draws the stroke cursor.
    MStatus captureSliceStroke(MHWRender::MUIDrawManager& drawManager);
    // Rebuilds strokePoints, frontHits and backHits from the through picks of world `samples`;
    // samples with no front hit add nothing. One ray per sample.
    void projectSliceSamples(const MPointArray& samples);
    // At release: joins the front hits, the back hits walked backwards and two straight bridges
    // into one closed ring on the source, in strokePoints. Empty when either side had no hit.
    MStatus closeSliceContour();
    // Every segment of `points` cut into `steps` equal steps, the first input point left out; a
    // single point gives an empty result.
    static MPointArray subdivideSegments(const MPointArray& points, int steps);
    // Freeze border: the retopo mesh's boundary ids into frozenVertices and the ones facing the
    // eye as markers in the locator's freepoints, both empty while the switch is off. O(vertices).
    MStatus refreshFreezeBorder();
    // Freeze median: the boundary ids on or over x = 0 into medianVertices, those facing the eye
    // as markers in freezeMedian. An invalid retopo path ends it with nothing written. O(vertices).
    MStatus refreshFreezeMedian();
    // Whether `point` lies on the median for a model on `side` ("left" or "right"): at or below
    // x = 0 on the right, at or above it on the left.
    static bool onMedianSide(const MPoint& point, const MString& side);

    // --- State, in declaration order ----------------------------------------------------------

    MCallbackId undoCallbackId = 0;
    MCallbackId toolChangedCallbackId = 0;
    MIntArray magnetVertices;
    MMeshIntersector intersector;
    MMeshIsectAccelParams accelParams;
    MPointArray meshPositions;
    MPointArray spareSnapshotPoints;  // kept for the layout; never filled
    MIntArray relaxIdsA;              // handed to each relax flush; stays empty
    double spareVector[3];            // kept for the layout; never used
    MIntArray relaxIdsB;              // handed to each relax flush; stays empty
    MIntArray spareIdsA;              // kept for the layout; never used
    MIntArray spareIdsB;              // kept for the layout; never used
    int figure;                       // 0 freehand, 1 line, 2 rectangle, 3 circle
    bool moveBrushHover;
    bool relaxBrushArmed;
    bool moveBrushArmed;
    bool ctrlStroke;
    bool shiftStroke;
    bool freezeBorder;
    bool freezeMedianOn;
    bool twisting;
    bool moveInProgress;
    bool sliceStroke;
    bool reverseFigure;
    bool reverseBridge;
    MPoint pressPoint;  // first hit of the stroke; the origin until there is one
    MPoint sparePoint;  // kept for the layout; never used
    MPoint currentHit;  // glued vertex under the pointer; the origin when none
    int moveHitState;   // 1 when the move brush's press found the surface, else -1
    MObject moveComponent;
    MPointArray backHits;
    MPointArray frontHits;
    MPointArray moveAnchors;
    // The fields below up to spinPhase get their first real value at setup, at a press or when a
    // brush is armed; they start at zero only so that nothing ever reads an indeterminate value.
    double relaxIntensity = 0.0;
    double relaxRadius = 0.0;
    MPoint brushCenter;
    int brushVertex = 0;
    double figureAspect = 0.0;  // written by the circle figure and read by nothing
    double spinPhase = 0.0;     // phase of the stroke cursor's spinning arcs
    MIntArray anchorVertices;
    std::vector<double> moveWeights;
    MIntArray frozenVertices;
    MIntArray medianVertices;
    MMatrix sourceMatrix;  // source mesh's inclusive matrix when the accelerators were built
    MPointArray strokePoints;
    MPointArray strokePreview;  // screen positions of slice samples that missed
    M3dView view;
    short bridgeDivisionsAtPress = 0;  // 0 until the divisions drag has read ky_bdiv
    short spansAtPress = 0;            // 0 until the spans drag has read the span option
    short lastY = 0;
    short lastX = 0;
    short currentX = 0;
    short currentY = 0;
    short pressX = 0;
    short pressY = 0;
    bool meshValid;
    bool meshIsMesh;
    MIntArray anchorEdges;
    MIntArray oppositeEdges;
    MIntArray oppositeVertices;
    MIntArray oppositeVerticesAlt;    // non-empty for a merge, empty for a bridge
    MeshSnapshot meshBeforeSnapshot;  // staging slot "redo"
    MeshSnapshot meshAfterSnapshot;   // staging slot "undo"
    MIntArray playersBefore, row1Before, row2Before, row3Before;
    MIntArray playersAfter, row1After, row2After, row3After;

private:
    // "Undo" event: deliberately ignored, the locator and mesh are restored by the commands.
    static void onUndo(void* clientData);
    // "ToolChanged" event: any change of tool, even back to this one, clears the tool's data.
    static void onToolChanged(void* clientData);

    // A fresh tool command from the host, as the tool's own class.
    kyStrakeToolCmd* newStrakeCommand();

    // Drag work of the LMB stroke, the MMB-CTRL magnet and one step of a twist.
    void dragStroke(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                    const MHWRender::MFrameContext& frameContext, const GestureKeys& keys);
    void dragMagnet();
    MStatus twistStep();

    // The release branches, in doRelease's order of tests.
    MStatus releaseSpansChange(kyStrakeToolCmd* cmd);
    MStatus releaseTail(kyStrakeToolCmd* cmd);
    void releaseStroke(MEvent& event, const MHWRender::MFrameContext& frameContext);
    MStatus releaseRedraw(kyStrakeToolCmd* cmd);
    MStatus redrawScratchStroke(kyStrakeToolCmd* cmd);
    MStatus releaseTwist(kyStrakeToolCmd* cmd);
};
