#pragma once
// The kyStrake locator: the tool's memory in the scene. Every stroke, anchor row, preview and
// on-screen number that must outlive a gesture or be drawn lives in one of its storable attributes,
// and the source mesh is whatever mesh output is connected into its kyStrakeMesh. The node computes
// nothing: its dependencies exist only so that writes dirty `sizes`, which makes the node redraw.

#include <maya/MDGContext.h>
#include <maya/MDataBlock.h>
#include <maya/MEvaluationNode.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPointArray.h>
#include <maya/MPxLocatorNode.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

class kyStrake : public MPxLocatorNode {
public:
    kyStrake();
    ~kyStrake() override;

    // Answers success for `strokes` and kUnknownParameter for every other plug, so the host keeps
    // the stored values; the data block is never touched.
    MStatus compute(const MPlug& plug, MDataBlock& data) override;
    // Flags the node's draw data dirty when `sizes` is among the dirty plugs of a normal evaluation.
    MStatus preEvaluation(const MDGContext& context, const MEvaluationNode& evaluationNode) override;
    // False: the node has no bounding box, so it is drawn whatever the camera frames.
    bool isBounded() const override;

    // Allocates one node for the host.
    static void* creator();
    // Creates and adds the attributes and their dependencies. A failing creation is reported and
    // the remaining attributes are still made; the status of the last dependency is returned.
    static MStatus initialize();

    static MTypeId id;
    static MString drawDbClassification;
    static MString drawRegistrantId;

    // Stroke sets: flat world-space points with their per-polyline counts.
    static MObject strokes;
    static MObject sizes;
    static MObject strokesShadow;
    static MObject sizesShadow;
    static MObject strokesNondestruct;
    static MObject sizesNondestruct;

    // Player row and the rows of the last patch, as vertex ids and as positions.
    static MObject playervtx;
    static MObject playersLine;
    static MObject playerpts;
    static MObject shadowIndices1;
    static MObject shadowIndices2;
    static MObject shadowIndices3;
    static MObject newFaces;

    // Freeze markers, previews and gesture feedback.
    static MObject freepoints;
    static MObject freezeMedian;
    static MObject fusept;
    static MObject fusemesh;
    static MObject fuseindices;
    static MObject sublines;
    static MObject magnetPt;
    static MObject tweakRadius;
    static MObject mode;
    static MObject interPoint;
    static MObject interNormal;

    // Channels loaded by the draw override that nothing writes.
    static MObject pointsDebug;
    static MObject verticestweak;

    // Source mesh connection and its per-polygon normals.
    static MObject kyStrakeMesh;
    static MObject inputNormals;

    // Display settings written by the panel and the context command.
    static MObject displayInfo;
    static MObject displaySize;
    static MObject pinch;
    static MObject symmetry;
    static MObject radiusMoveInteractive;
    static MObject radiusRelaxInteractive;
    static MObject intensityRelaxInteractive;

private:
    // Kept for the node's layout; nothing reads or writes it.
    MPointArray unusedPoints_;
};
