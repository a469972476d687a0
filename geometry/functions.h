#pragma once
// The tool's geometry library: stateless free functions shared by the context, the tool command,
// the nodes and the draw override. They read and write the kyStrake locator's attributes, the
// host's option variables and the panel's controls, convert between vertex ids and positions, and
// measure, subdivide and pick. Nothing here keeps state: the locator is looked up afresh on each
// call. Failing host calls print the standard error line under the stem "functions".

#include <maya/MColor.h>
#include <maya/MDagPath.h>
#include <maya/MDataHandle.h>
#include <maya/MFloatArray.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFn.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MUintArray.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

#include <cstddef>
#include <vector>

class M3dView;
class MMeshIsectAccelParams;
namespace MHWRender {
class MUIDrawManager;
}

// An ordered list of polylines, as split out of a stroke set. Indexing past its end, by [] or at(),
// throws std::out_of_range("invalid vector subscript"): the one exception the tool raises.
class PolylineList : public std::vector<MPointArray> {
public:
    using std::vector<MPointArray>::vector;
    MPointArray& operator[](std::size_t index) { return at(index); }
    const MPointArray& operator[](std::size_t index) const { return at(index); }
    MPointArray& at(std::size_t index);
    const MPointArray& at(std::size_t index) const;
};

// ---------------------------------------------------------------------------------------------
// Polyline resampling

// `count` points spaced evenly by arc length along the polyline `points`, first and last on its
// ends (by the same formula, so up to rounding). Linear: corners that fall between samples are
// cut. Fewer than two input points come back unchanged whatever `count` is. O(n * count).
MPointArray resamplePolyline(const MPointArray& points, int count);
// The entry the patch operations resample through: resamplePolyline with `count` (a number of
// points, so s spans take s + 1) raised to at least 2.
MPointArray resampleStroke(const MPointArray& points, int count);

// ---------------------------------------------------------------------------------------------
// Finding things in the scene

// The first plug-in node, in the host's iteration order, that has an attribute "kyStrakeMesh";
// MObject::kNullObj when there is none. Walks the whole graph on every call.
MObject findStrakeLocator();
// The retopo mesh: the shape of the first selected object when it is a mesh, else an empty path.
MDagPath getActiveMeshPath();
// The source mesh: the mesh connected into the locator's "kyStrakeMesh". An empty path when
// nothing is connected; kInvalidParameter in `status` when there is no locator.
MDagPath getSourceMeshPath(MStatus& status);
MDagPath getSourceMeshPath();
// A DAG path by name: selection-list lookup first, then the active mesh, then the first node of a
// full DAG walk with that partial name. Not found: kInvalidParameter and an empty path.
MDagPath findMeshByName(const MString& name, MStatus& status);
// The "kyPatchNode" node called `name`, into `outNode`. False when there is none.
bool findPatchNodeByName(const MString& name, MObject& outNode);
// The node feeding the active mesh's "inMesh", into `outNode`, when it is a "kyPatchNode".
// Otherwise false with kFailure in `status`.
bool getUpstreamPatchNode(MObject& outNode, MStatus& status);
// `stem` followed by the lowest counter from 1 whose name no "kyPatchNode" node has. The counter
// is appended as its low eight bits read as a signed value (see the definition); the bare stem
// when no counter is free.
MString nextPatchNodeName(const MString& stem);
// The dependency node called `name`; a null object when there is none.
MObject getObjectByName(const MString& name);
// Vertex count of the mesh at `path`; 0 for an invalid path or a failed query.
int meshVertexCount(const MDagPath& path);
// Number of nodes "listHistory -ac" lists for the active mesh; 0 without a mesh or on failure.
int countHistoryNodes();

// ---------------------------------------------------------------------------------------------
// Attribute access by name on any node
//
// Reads leave their output untouched on failure: kInvalidParameter for a null node, a missing
// attribute or an array attribute never written. Callers start from empty outputs, so an absent
// array reads as empty. Writes return the failing status and leave the attribute as it was.

// A data handle on the plug `name` of `node`; an empty handle and kInvalidParameter when the
// node or the plug is missing.
MDataHandle attrDataHandle(const char* name, const MObject& node, MStatus& status);
MStatus getIntArrayAttr(const char* name, const MObject& node, MIntArray& out);
MStatus getPointArrayAttr(const char* name, const MObject& node, MPointArray& out);
MStatus getVectorArrayAttr(const char* name, const MObject& node, MVectorArray& out);
MStatus getDoubleAttr(const char* name, const MObject& node, double& out);
// The value of an integer attribute; -1 when it cannot be read (a null node, a missing plug).
int getIntAttr(const char* name, const MObject& node, MStatus& status);
// A three-double compound as a point with w = 1, or as a vector.
MStatus getPoint3Attr(const char* name, const MObject& node, MPoint& out);
MStatus getVector3Attr(const char* name, const MObject& node, MVector& out);

MStatus setIntAttr(const char* name, const MObject& node, int value);
MStatus setDoubleAttr(const char* name, const MObject& node, double value);
MStatus setIntArrayAttr(const char* name, const MObject& node, const MIntArray& values);
MStatus setFloatArrayAttr(const char* name, const MObject& node, const MFloatArray& values);
MStatus setPointArrayAttr(const char* name, const MObject& node, const MPointArray& values);
MStatus setVectorArrayAttr(const char* name, const MObject& node, const MVectorArray& values);
MStatus setPoint3Attr(const char* name, const MObject& node, double x, double y, double z);
MStatus setVector3Attr(const char* name, const MObject& node, double x, double y, double z);

// ---------------------------------------------------------------------------------------------
// Named attributes of the locator
//
// Each finds the locator afresh. Without one, a clear does nothing and succeeds and a read leaves
// its output empty.

// "strokes" of `node`; a null node reads as empty and succeeds.
MStatus getStrokes(const MObject& node, MPointArray& out);
// "sizes" and "sizesShadow" of `node`.
MStatus getSizes(const MObject& node, MIntArray& out);
MStatus getSizesShadow(const MObject& node, MIntArray& out);
// "strokesShadow" of the locator.
MStatus getShadowStrokes(MPointArray& out);
// The three rows "shadowIndices1" to "3". Every read is tried; each failure is printed and the
// status of the last read is returned.
MStatus getShadowIndices(MIntArray& row1, MIntArray& row2, MIntArray& row3);
// The player row: ids ("playervtx") and positions ("playerpts").
MIntArray getPlayerVertices(MStatus& status);
MIntArray getPlayerVertices();
MPointArray getPlayerPoints(MStatus& status);
MPointArray getPlayerPoints();
// Face ids of the last patch ("newFaces").
MIntArray getNewFaces();
MStatus setNewFaces(const MIntArray& faces);
MStatus setPlayerVertices(const MIntArray& ids);
// Writes the same points to "playersLine" and then "playerpts".
MStatus setPlayerLine(const MPointArray& points);
// The world positions of `ids` on the active mesh, written as the player line. No locator:
// kInvalidParameter and nothing written.
MStatus setPlayerLineFromIds(const MIntArray& ids);

bool hasStrokes();
bool hasPlayerVertices();
// True when the player row is not empty and its first id equals its last (so a single id too).
bool isPlayerClosed();
// Number of entries in "sizes" and in "sizesShadow".
int strokeCount();
int shadowCount();
bool hasShadow();

// Each writes empty arrays to its attributes in the order given, stopping at the first failure.
MStatus clearStrokes();                 // "strokes", "sizes"
MStatus clearStrokes(MStatus& status);  // the same, also leaving the result in `status`
MStatus clearShadowStrokes();           // "strokesShadow", "sizesShadow"
MStatus clearShadowIndices();           // "shadowIndices1", "2", "3"
MStatus clearPlayerVertices();          // "playervtx"
MStatus clearNewFaces();                // "newFaces"
MStatus clearMagnetPoints();            // "magnetPt"
MStatus clearFreePoints();              // "freepoints", and releases the panel's "freezeBtn"
MStatus clearFreezeMedian();            // "freezeMedian", and releases "freezeSymBtn"
// "fusept", "fusemesh", "fuseindices" and "sizesShadow"; "strokesShadow" is left alone.
MStatus clearFuseData();

// ---------------------------------------------------------------------------------------------
// Option variables and the two text channels

// Spans along a row ("ky_uspan") and across a band ("ky_vspan"): 12 when unset, 0 read as 1.
int getUSpan();
int getVSpan();
// Store a span count, raised to at least 1. False when the host refuses the store.
bool setUSpan(int spans);
bool setVSpan(int spans);
// Glue ("ky_glue"): on only when set and non-zero.
bool getGlue();
bool setGlue(bool on);
// An option's value, or `fallback` when it is unset. optionFlag is true when that equals 1.
int optionInt(const MString& key, int fallback);
double optionDouble(const MString& key, double fallback);
bool optionFlag(const MString& key, int fallback);
// The status line ("kyStrake_info1", bottom left). A dense, non-referenced source mesh adds a
// density warning behind the text.
void setInfoLine1(const MString& text);
// The help line ("kyStrake_info2", top left).
void setInfoLine2(const MString& text);
// Writes `line2` (help) first, then `line1` (status).
void setInfoLines(const MString& line2, const MString& line1);

// ---------------------------------------------------------------------------------------------
// Panel controls, found by object name; a missing control is no failure

void setButtonChecked(const MString& name, bool on);
// A missing check box counts as checked.
bool isCheckBoxChecked(const MString& name);
void setSpinBoxValue(const MString& name, int value);
// The pinch value: the "pinchSlid" slider / 100 while "lockedPinchChk" exists and is clear,
// otherwise the locator's "pinch" attribute.
double getPinch();
MStatus setPinch(double value);
// "nodeState" of `node` to normal (0) or has-no-effect (1).
MStatus setNodeStateNormal(const MObject& node);
MStatus setNodeStateHasNoEffect(const MObject& node);

// ---------------------------------------------------------------------------------------------
// Rows and shadows
//
// A row is a chain of vertex ids of the retopo mesh ("shadowIndices1" to "3"); a closed row
// repeats its first id as its last entry. The shadow is the same chains as positions
// ("strokesShadow" split by "sizesShadow").

// The shadow and the stroke set split into polylines. No check that the sizes add up.
PolylineList getShadowRows(MStatus& status);
PolylineList getShadowRows();
PolylineList getStrokeList(MStatus& status);
PolylineList getStrokeList();
// The kept strokes ("strokesNondestruct" split by "sizesNondestruct"); the shadow rows when either
// array is empty. Sizes that outrun the points give short polylines. No locator: kFailure.
PolylineList getNondestructStrokes(MStatus& status);
// Appends the last shadow polyline's size to `outSizes` and its points to `outPoints`.
// kInvalidParameter when the shadow is empty.
MStatus lastShadowStroke(MIntArray& outSizes, MPointArray& outPoints);
// World positions of `ids` on `path` (the active mesh when `path` is invalid). An id above the
// vertex count gives kFailure and an empty array; see the definition for an id equal to it.
MPointArray pointsFromIds(const MIntArray& ids, const MDagPath& path, MStatus& status);
MPointArray pointsFromIds(const MIntArray& ids, const MDagPath& path);
// For each point, the id of the vertex nearest to it on `path` (the active mesh when invalid).
// Vertex 0 is never chosen; see the definition. O(vertices * points).
MIntArray idsFromPoints(const MDagPath& path, const MPointArray& points, MStatus& status);
MIntArray idsFromPoints(const MDagPath& path, const MPointArray& points);
bool containsId(int id, const MIntArray& ids);
// True when any id of `a` occurs in `b`.
bool rowsShareId(const MIntArray& a, const MIntArray& b);
// Row 1 filled, row 2 empty, row 3 filled: a patch grown from the player row by one stroke.
bool hasFirstAndThirdRows();
// Closed-ness of shadow polylines and strokes (first and last point nearer than a tolerance).
bool anyShadowClosed();
bool anyStrokeClosed();
// Stroke `index` closed; an index past the list throws (see PolylineList).
bool isStrokeClosed(int index);
// The test of isStrokeClosed on a stroke already in hand, for callers that hold a copy of the
// stroke set and must not read the locator once per stroke (the viewport, each frame).
bool isStrokeClosed(const MPointArray& stroke);
bool isFirstChainClosed();
// True when any of `ids` is not on the mesh's boundary; false for no ids.
bool isRowOnInterior(const MDagPath& path, const MIntArray& ids);

// Overwrite the last entry with the first. Empty: success, no change; one or two entries:
// kFailure, no change.
MStatus closeRow(MIntArray& ids);
MStatus closePoints(MPointArray& points);
// closeRow on both, only when both have at least three entries (else kFailure, no change).
MStatus closeRowPair(MIntArray& a, MIntArray& b);
// Writes the three rows, then "sizesShadow" as the lengths of the non-empty rows.
MStatus writeShadowIndices(const MIntArray& ids1, const MIntArray& ids2, const MIntArray& ids3);
// Writes the shadow: `p3` alone when it has points, else `p1` and `p2` (two sizes, even a 0).
MStatus writeShadowStrokes(const MPointArray& p1, const MPointArray& p2, const MPointArray& p3);
// The shadow of three rows, looked up on the active mesh.
MStatus writeShadowStrokesFromIds(const MIntArray& ids1, const MIntArray& ids2, const MIntArray& ids3);
// Rewrites the shadow from the rows' ids on the active mesh, when a player row or rows 1 and 3
// exist; see the definition for the failures.
MStatus refreshShadowStrokes();
// Rewrites the shadow from the rows on `path`, skipping ids the mesh no longer has.
MStatus refreshShadowStrokesFromMesh(const MDagPath& path);
// Rewrites the rows from the shadow's positions (nearest vertices) after a renumbering.
MStatus rebuildShadowIndices();
// "sizesNondestruct" then "strokesNondestruct" from a list of polylines, or from one.
MStatus writeNondestructStrokes(const PolylineList& list);
MStatus writeNondestructStroke(const MPointArray& points);
// Removes the last stroke from "sizes" and "strokes"; false when there is none.
bool dropLastStroke();
// The end of a patch flow: clear the strokes, set `patchNode` (if any) to normal, refresh the
// shadow. Always succeeds.
MStatus settlePatch(const MObject& patchNode);
// Rewrites the player line from the player ids on `path`; no player ids, no change.
MStatus refreshPlayerLine(const MDagPath& path);
// Closes every row and shadow polyline; `outIds` gets the row to continue from as it was before
// closing (row 3, else row 2), `outPoints` that row's closed polyline.
MStatus stackSlice(MPointArray& outPoints, MIntArray& outIds);
// After a patch on a closed player row: closes rows 1 and 2, refreshes the shadow and makes row 2
// the player row. Failures are printed and the later steps still run.
void finishClosedRows();
// Rotates closed row 2 by one vertex against row 1 (direction > 0 forward, < 0 back, 0 nothing)
// and rewrites the shadow.
MStatus twistShadow(int direction);
// Vertex component of the ids from newCount - 1 down to oldCount that lie on neither of the first
// two shadow polylines: the new vertices free to slide. Null when there are none.
MObject stripVertices(int oldCount, int newCount, MStatus& status, const MDagPath& path = MDagPath());
// Vertex component of the ids from newCount - 1 down to oldCount.
MObject deltaVertices(int oldCount, int newCount);
// Vertex component of the ids oldCount + 1 to newCount: one above deltaVertices, on purpose.
MObject newVertexComponent(int oldCount, int newCount);
// A single-indexed component of `type` (kMeshVertComponent or kMeshPolygonComponent) holding
// `ids`; a null object for no ids.
MObject makeComponent(const MIntArray& ids, MFn::Type type);
// Compose a trace line of ids or points under `label` and return it; nothing is printed.
MString traceIds(const MIntArray& ids, const MString& label);
MString tracePoints(const MPointArray& points, const MString& label);
// Sets `status` to kInvalidParameter and returns it. `text` is dropped: it never reaches the user.
MStatus failWith(MStatus& status, const MString& text);

// ---------------------------------------------------------------------------------------------
// Mesh surgery through host commands
//
// The builders compose script text and do nothing else; the caller runs it, which keeps the one
// decision on undo with the caller. Each takes the mesh's full path name at every use.

// "polySplitRing" of the edges `edgeIds` of `path` at `weight`, closed by " ;".
MString splitRingCommand(const MDagPath& path, const MIntArray& edgeIds, double weight);
// "polyBridgeEdge" pairing edges1[i] with edges2[i]; no closing semicolon.
MString bridgeCommand(const MDagPath& path, const MIntArray& edges1, const MIntArray& edges2, int divisions);
// "polyMergeVertex" of the first two of `vertexIds` at any distance.
MString mergePairCommand(const MIntArray& vertexIds, const MDagPath& path);
// Moves ids1[i] and ids2[i] to positions[i], then merges every pair.
MString fuseBordersCommand(const MDagPath& path, const MIntArray& ids1, const MIntArray& ids2,
                           const MPointArray& positions);
// The "kyPatchCmd" text that inserts a patch node called `name` above the mesh at `path`.
MString patchCommandText(const MString& name, const MDagPath& path);
// A new empty mesh "kyMeshShape<n>" with the default material, selected; returns its transform's
// path. A failing step is returned in `status` with an empty path.
MDagPath createRetopoMesh(MStatus& status);
// Runs patchCommandText with display and undo off and finds the node into `outNode`;
// kInvalidParameter when the node does not exist afterwards.
MStatus applyPatchCommand(const MString& name, const MDagPath& path, MObject& outNode);
// Takes the patch node `name` out of the history (its input reconnected to its output's
// destination) and deletes it. kInvalidParameter when there is no such node or nothing to bypass.
MStatus removePatchNode(const MString& name);
// Connects the source of `node`'s "inMesh" to the destination of its "outMesh".
bool bypassNode(const MObject& node);
// The source plug name of `inName` and the (last) destination plug name of `outName` on `node`.
// False when either plug is missing or unconnected.
bool readNeighbourPlugs(MString& outSource, const MObject& node, MString& outDest, const MString& inName,
                        const MString& outName);

// ---------------------------------------------------------------------------------------------
// Measures

// Distance over x and y only.
double distance2(MPoint a, MPoint b);
// Distance over x, y and z: the distance of every row and stroke test.
double distance3(const MPoint& a, const MPoint& b);
// Pixel distance of two world points in the active view, truncated to 16 bits.
short screenDistance(const MPoint& a, const MPoint& b);
// Length of `v` along `axis`: |v| cos(angle(v, axis)).
double projectedLength(const MVector& v, const MVector& axis);
// Degrees to radians with the tool's own constant (see the definition).
double degreesToRadians(double degrees);
// `point` when all of x, y and z are at least 0.0001 in magnitude; otherwise `point` is
// overwritten with the last of `points` (when there is one) and returned.
MPoint keepOrLastPoint(MPoint& point, const MPointArray& points);
// Index of the entry smallest in magnitude, the first of equals; 0 when empty or when no entry
// is below 99999.
int nearestHitIndex(const MFloatArray& values);

// ---------------------------------------------------------------------------------------------
// View space

// A world point in the active view's pixels, as (x, y, 0, 1).
MPoint worldToScreen(const MPoint& point);
// The near point of the active view's ray under pixel (x, y) of `point`, truncated to integers.
MPoint screenToWorld(const MPoint& point);
// The active view camera's eye point in world space.
MFloatPoint cameraEyePoint();

// ---------------------------------------------------------------------------------------------
// Straight-line subdivision. The end point is left out, so consecutive runs join without doubles.

// For exactly two distinct points: truncate(length * density) points from the first in equal
// steps; none when that is below 1. Anything else comes back as it is.
MPointArray subdivideByDensity(const MPointArray& points, double density);
// screenDistance(p0, p1) / pixels points from p0 in equal steps. `pixels` must not be 0.
MPointArray subdivideByScreen(const MPoint& p0, const MPoint& p1, int pixels);
// The closed outline p0, p1, p2, p3, p0 subdivided side by side, ending with p0 itself.
MPointArray subdivideOutline(const MPoint& p0, const MPoint& p1, const MPoint& p2, const MPoint& p3,
                             int pixels);

// ---------------------------------------------------------------------------------------------
// Meshes and picking

// Casts the ray under pixel (x, y) of `view` onto the mesh at `path`: hit points (world, sorted
// nearest first) and faces. With `wantNormal`, the first hit face's world normal goes to `normal`.
// False for x or y not above 0, an invalid path, a failed cast or no hit.
bool intersectSurface(const MDagPath& path, MFloatPointArray& hitPoints, MVector& normal, M3dView& view,
                      MMeshIsectAccelParams& accelParams, short x, short y, MIntArray& faces,
                      bool wantNormal);
// All vertex positions of the active mesh in world space.
MPointArray getMeshPositions(MStatus& status);
MPointArray getMeshPositions();
// Vertex component of the vertices of the faces in "newFaces" (or of `faces` while "newFaces" has
// never been written), in walk order without repeats; null when there are no faces.
MObject verticesOfFaces(const MDagPath& path, const MIntArray& faces);
// The transform above the DAG node `node`.
MObject transformOfNode(const MObject& node);
// Drops every vertex tweak of the active mesh (its "pnts"). No active mesh is no failure.
MStatus clearMeshTweaks();
MStatus clearMeshTweaks(MStatus& status);
// Writes the bridge or merge preview: "fusept", "fusemesh", "mode" and "fuseindices".
MStatus storeFuseData(const MPointArray& points, const MPointArray& meshPoints, const MUintArray& ids,
                      int mode);
// Clears `flag` when `id` is one of `ids`.
void dropIfContained(int id, const MIntArray& ids, bool& flag);

// ---------------------------------------------------------------------------------------------
// Drawing

// A ring marker at `point` (view pixels when its z is exactly 0, else world): an outline and a
// filled disc of `radius`, and unless `plain`, a thin dark edge around both. Black `color` keeps
// the manager's current colour.
void drawMarker(MHWRender::MUIDrawManager& manager, const MPoint& point, const MColor& color, double radius,
                bool plain);
