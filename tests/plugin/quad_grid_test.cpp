// The quad grid builder: quads from neighbouring rows, their corner order and creation order, the
// pinched strips, the vertex numbering that the point merge gives when a patch grows from existing
// vertices, closed rows, resampling of rows of the wrong length, and the failures.

#include <gtest/gtest.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MVector.h>

#include <ostream>
#include <string>
#include <vector>

#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tests/plugin/patchGeometryScene.h"

namespace {

using kytest::pointsOf;
using kytest::values;

// Mesh points are held in single precision.
constexpr double kTolerance = 1e-5;

// `count` points from `start` in steps of `step`.
MPointArray line(const MPoint& start, const MVector& step, int count) {
    MPointArray points;
    for (int i = 0; i < count; ++i) points.append(start + step * i);
    return points;
}

class QuadGrid : public kytest::PatchGeometryScene {
protected:
    void SetUp() override {
        PatchGeometryScene::SetUp();
        locator = makeLocator();
    }

    MIntArray build(MFnMesh& meshFn, const PolylineList& rows, unsigned int uSpans, unsigned int vSpans,
                    bool allowUnequal = false) {
        MObject meshObject;
        return command.buildQuadGrid(meshFn, rows, uSpans, vSpans, allowUnequal, ok, meshObject);
    }

    // Positions of the corners of `face`, in the face's order.
    static std::vector<MPoint> corners(const MFnMesh& meshFn, int face) {
        MIntArray ids;
        EXPECT_TRUE(meshFn.getPolygonVertices(face, ids));
        std::vector<MPoint> points;
        for (unsigned int i = 0; i < ids.length(); ++i) {
            MPoint point;
            meshFn.getPoint(ids[i], point);
            points.push_back(point);
        }
        return points;
    }

    // The id of the vertex of `meshFn` at `point`; -1 when there is none.
    static int vertexAt(const MFnMesh& meshFn, const MPoint& point) {
        MPointArray points;
        meshFn.getPoints(points);
        for (unsigned int i = 0; i < points.length(); ++i) {
            if (points[i].distanceTo(point) < kTolerance) return static_cast<int>(i);
        }
        return -1;
    }

    // Distances from `origin` along `across` of the lines between the strips `faces` of one column:
    // the far corner (p3) of every strip but the last.
    static std::vector<double> innerLines(const MFnMesh& meshFn, const MIntArray& faces, const MPoint& origin,
                                          const MVector& across) {
        std::vector<double> lines;
        for (unsigned int k = 0; k + 1 < faces.length(); ++k)
            lines.push_back((corners(meshFn, faces[k])[3] - origin) * across);
        return lines;
    }

    kyStrakeToolCmd command;
    MObject locator;
    bool ok = false;
};

void expectNear(const MPoint& actual, const MPoint& expected, const std::string& what) {
    EXPECT_NEAR(actual.distanceTo(expected), 0.0, kTolerance)
        << what << ": (" << actual.x << ", " << actual.y << ", " << actual.z << ")";
}

TEST_F(QuadGrid, FirstQuadRunsAlongTheFirstRowThenBackAlongTheSecond) {
    // A tilted band: the second row lies higher and further along z than the first.
    const PolylineList rows{line(MPoint(0, 0, 0), MVector(1, 0, 0), 5),
                            line(MPoint(0, 1, 2), MVector(1, 0, 0), 5)};
    MFnMesh meshFn;
    const MIntArray faces = build(meshFn, rows, 4, 1);

    EXPECT_TRUE(ok);
    EXPECT_EQ(values(faces), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(meshFn.numPolygons(), 4);
    EXPECT_EQ(meshFn.numVertices(), 10);
    const std::vector<MPoint> first = corners(meshFn, 0);
    ASSERT_EQ(first.size(), 4u);
    expectNear(first[0], rows[0][0], "rowA[0]");
    expectNear(first[1], rows[0][1], "rowA[1]");
    expectNear(first[2], rows[1][1], "rowB[1]");
    expectNear(first[3], rows[1][0], "rowB[0]");
}

TEST_F(QuadGrid, MakesColumnsOuterAndStripsInner) {
    const PolylineList rows{line(MPoint(0, 0, 0), MVector(1, 0, 0), 3),
                            line(MPoint(0, 0, 2), MVector(1, 0, 0), 3)};
    MFnMesh meshFn;
    const MIntArray faces = build(meshFn, rows, 2, 2);

    ASSERT_EQ(faces.length(), 4u);
    // Quad (j, k) spans x from j to j + 1 and z from k to k + 1.
    const int expected[4][2] = {{0, 0}, {0, 1}, {1, 0}, {1, 1}};
    for (int f = 0; f < 4; ++f) {
        const std::vector<MPoint> quad = corners(meshFn, faces[f]);
        expectNear(quad[0], MPoint(expected[f][0], 0, expected[f][1]), "p0 of quad " + std::to_string(f));
        expectNear(quad[2], MPoint(expected[f][0] + 1, 0, expected[f][1] + 1),
                   "p2 of quad " + std::to_string(f));
    }
}

struct PinchCase {
    unsigned int vSpans;
    double pinch;
    std::vector<double> lines;
};

void PrintTo(const PinchCase& value, std::ostream* out) {
    *out << "vSpans " << value.vSpans << " pinch " << value.pinch;
}

class QuadGridPinch : public QuadGrid, public ::testing::WithParamInterface<PinchCase> {};

TEST_P(QuadGridPinch, MovesTheSecondAndSecondLastLinesTowardsTheBorders) {
    const PinchCase& param = GetParam();
    ASSERT_TRUE(setPinch(param.pinch));
    // One column, slanted, whose cross step U has length 1.
    const MVector unit(0.0, 0.6, 0.8);
    const MPointArray first = pointsOf({MPoint(1, 2, 3), MPoint(2, 2, 3)});
    const MVector across = unit * param.vSpans;
    const PolylineList rows{first, pointsOf({first[0] + across, first[1] + across})};
    MFnMesh meshFn;
    const MIntArray faces = build(meshFn, rows, 1, param.vSpans);

    ASSERT_EQ(faces.length(), param.vSpans);
    const std::vector<double> lines = innerLines(meshFn, faces, first[0], unit);
    ASSERT_EQ(lines.size(), param.lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_NEAR(lines[i], param.lines[i], kTolerance) << "line " << i;
    // Each strip starts where the one before it ended.
    for (unsigned int k = 1; k < faces.length(); ++k)
        expectNear(corners(meshFn, faces[k])[0], corners(meshFn, faces[k - 1])[3],
                   "strip " + std::to_string(k));
}

INSTANTIATE_TEST_SUITE_P(Strips, QuadGridPinch,
                         ::testing::Values(PinchCase{4, 0.25, {0.75, 2.0, 3.25}},
                                           PinchCase{3, 0.25, {1.0, 2.0}},
                                           PinchCase{5, 0.25, {0.75, 2.0, 3.0, 4.25}},
                                           PinchCase{6, 0.1, {0.9, 2.0, 3.0, 4.0, 5.1}},
                                           PinchCase{4, 0.0, {1.0, 2.0, 3.0}}, PinchCase{2, 0.5, {1.0}}));

TEST_F(QuadGrid, PatchGrownFromExistingVerticesNumbersItsFarRowByTheMergeOrder) {
    // Grid vertices 5..9 lie on z = 1 at x = 0..4: the first row merges onto them.
    const MDagPath grid = makeGrid(4, 1);
    select(grid);
    MFnMesh meshFn(grid);
    const int base = meshFn.numVertices();
    const unsigned int vSpans = 3;
    const PolylineList rows{line(MPoint(0, 0, 1), MVector(1, 0, 0), 5),
                            line(MPoint(0, 0.5, 4), MVector(1, 0, 0), 5)};
    const MIntArray faces = build(meshFn, rows, 4, vSpans);

    ASSERT_TRUE(ok);
    EXPECT_EQ(faces.length(), 4u * vSpans);
    EXPECT_EQ(vertexAt(meshFn, rows[0][0]), 5) << "the first row welds to the grid";
    // Column 0 adds p2 then p3 per strip.
    for (unsigned int k = 0; k < vSpans; ++k) {
        const std::vector<MPoint> quad = corners(meshFn, faces[k]);
        EXPECT_EQ(vertexAt(meshFn, quad[2]), base + 2 * static_cast<int>(k)) << "strip " << k;
        EXPECT_EQ(vertexAt(meshFn, quad[3]), base + 2 * static_cast<int>(k) + 1) << "strip " << k;
    }
    const int B = base + 2 * static_cast<int>(vSpans) - 1;
    std::vector<int> farRow;
    for (unsigned int j = 0; j < rows[1].length(); ++j) farRow.push_back(vertexAt(meshFn, rows[1][j]));
    EXPECT_EQ(farRow, (std::vector<int>{B, B - 1, B + 3, B + 6, B + 9}));
    EXPECT_EQ(meshFn.numVertices(), base + 5 * static_cast<int>(vSpans));

    // The last band's rows become the shadow and, by nearest vertex, the rows.
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    EXPECT_EQ(values(row1), (std::vector<int>{5, 6, 7, 8, 9}));
    EXPECT_EQ(values(row2), farRow);
    MIntArray shadowSizes;
    getSizesShadow(locator, shadowSizes);
    EXPECT_EQ(values(shadowSizes), (std::vector<int>{5, 5}));
}

TEST_F(QuadGrid, DropsTheRetopoMeshTweaksFirst) {
    const MDagPath grid = makeGrid(4, 1);
    select(grid);
    ASSERT_TRUE(mhost::driver::runCommand("setAttr " + std::string(grid.partialPathName().asChar()) +
                                          ".pnts[0] 0 3 0"));
    MFnMesh meshFn(grid);
    build(
        meshFn,
        PolylineList{line(MPoint(0, 0, 1), MVector(1, 0, 0), 5), line(MPoint(0, 0, 2), MVector(1, 0, 0), 5)},
        4, 1);

    MPoint corner;
    meshFn.getPoint(0, corner);
    expectNear(corner, MPoint(0, 0, 0), "vertex 0 without its tweak");
}

// A triangle ring in y = 0 whose last point is `lastPoint`, and the same raised to y = 1.
PolylineList ringBand(const MPoint& lastPoint) {
    const MPointArray ring =
        pointsOf({MPoint(1, 0, 0), MPoint(-0.5, 0, 0.8), MPoint(-0.5, 0, -0.8), lastPoint});
    MPointArray above;
    for (unsigned int i = 0; i < ring.length(); ++i) above.append(ring[i] + MVector(0, 1, 0));
    return PolylineList{ring, above};
}

TEST_F(QuadGrid, ClosedFirstRowOfTwoSpansBecomesARingOfThree) {
    MFnMesh closed;
    EXPECT_EQ(build(closed, ringBand(MPoint(1, 0, 0)), 2, 2).length(), 6u);
    EXPECT_TRUE(ok);
    EXPECT_EQ(closed.numVertices(), 9) << "the third column closes on the first by point merge";

    // Missing the first point by a hair is no ring: four points are resampled to uSpans = 2 points.
    MFnMesh open;
    EXPECT_EQ(build(open, ringBand(MPoint(1, 0, 1e-12)), 2, 2).length(), 2u);
}

TEST_F(QuadGrid, RowsOfTheWrongLengthComeOutOneShort) {
    // Nine and seven points for uSpans 4: both rows end with four points, three quads.
    const PolylineList rows{line(MPoint(0, 0, 0), MVector(0.5, 0, 0), 9),
                            line(MPoint(0, 0, 1), MVector(0.6, 0.1, 0), 7)};
    MFnMesh meshFn;
    const MIntArray faces = build(meshFn, rows, 4, 1);

    EXPECT_TRUE(ok);
    ASSERT_EQ(faces.length(), 3u);
    expectNear(corners(meshFn, faces[2])[1], MPoint(4, 0, 0), "the resampled row keeps its end");
    MIntArray shadowSizes;
    getSizesShadow(locator, shadowSizes);
    EXPECT_EQ(values(shadowSizes), (std::vector<int>{4, 4}));
}

TEST_F(QuadGrid, SingleRowMakesNoFacesAndAnEmptyShadow) {
    MFnMesh meshFn;
    const MIntArray faces = build(meshFn, PolylineList{line(MPoint(0, 0, 0), MVector(1, 0, 0), 3)}, 2, 1);

    EXPECT_TRUE(ok);
    EXPECT_EQ(faces.length(), 0u);
    MIntArray shadowSizes;
    getSizesShadow(locator, shadowSizes);
    EXPECT_EQ(values(shadowSizes), (std::vector<int>{0, 0}));
}

TEST_F(QuadGrid, RowsThatCannotBeMatchedFailAndDropTheIdsOfEarlierBands) {
    const MPointArray first = line(MPoint(0, 0, 0), MVector(1, 0, 0), 3);
    const MPointArray second = line(MPoint(0, 0, 1), MVector(1, 0, 0), 3);
    const MPointArray lonePoint = pointsOf({MPoint(0, 0, 2)});
    for (bool allowUnequal : {false, true}) {
        MFnMesh meshFn;
        const MIntArray faces = build(meshFn, PolylineList{first, second, lonePoint}, 2, 1, allowUnequal);
        EXPECT_FALSE(ok) << allowUnequal;
        EXPECT_EQ(faces.length(), 0u) << allowUnequal;
        EXPECT_EQ(meshFn.numPolygons(), 2) << "the first band stays in the mesh";
    }

    MFnMesh meshFn;
    EXPECT_EQ(build(meshFn, PolylineList{}, 2, 1).length(), 0u);
    EXPECT_FALSE(ok);
    EXPECT_EQ(build(meshFn, PolylineList{MPointArray(), second}, 2, 1).length(), 0u);
    EXPECT_FALSE(ok);
}

TEST_F(QuadGrid, FailedQuadIsReportedSkippedAndKeepsItsSlot) {
    // Column 0 collapses onto the first row (all corners on two points); column 1 is a triangle.
    const PolylineList rows{pointsOf({MPoint(0, 0, 0), MPoint(1, 0, 0), MPoint(2, 0, 0)}),
                            pointsOf({MPoint(0, 0, 0), MPoint(1, 0, 0), MPoint(2, 0, 1)})};
    MFnMesh meshFn;
    testing::internal::CaptureStderr();
    const MIntArray faces = build(meshFn, rows, 2, 1);
    const std::string errors = testing::internal::GetCapturedStderr();

    EXPECT_TRUE(ok);
    EXPECT_EQ(values(faces), (std::vector<int>{-1, 0}));
    EXPECT_EQ(meshFn.numPolygons(), 1);
    EXPECT_NE(errors.find("API error detected in kyStrakeToolCmd"), std::string::npos) << errors;
}

TEST_F(QuadGrid, MergesByDistanceAloneWithinTheThreshold) {
    // A stray vertex of the retopo mesh 0.01 from a corner of the new far row, nowhere near the
    // first row.
    const MDagPath stray =
        makeMesh(pointsOf({MPoint(10, 0, 10), MPoint(11, 0, 10), MPoint(2.01, 0, 3)}), {{0, 1, 2}});
    select(stray);
    const PolylineList rows{line(MPoint(0, 0, 0), MVector(1, 0, 0), 3),
                            line(MPoint(0, 0, 3), MVector(1, 0, 0), 3)};

    MFnMesh defaultTolerance(stray);
    build(defaultTolerance, rows, 2, 1);
    EXPECT_EQ(defaultTolerance.numVertices(), 3 + 6);

    ASSERT_TRUE(MGlobal::setOptionVarValue("ky_mergThreshold", 0.05));
    EXPECT_DOUBLE_EQ(kyStrakeToolCmd::mergeThreshold(), 0.05);
    const MDagPath stray2 =
        makeMesh(pointsOf({MPoint(10, 0, 10), MPoint(11, 0, 10), MPoint(2.01, 0, 3)}), {{0, 1, 2}});
    select(stray2);
    MFnMesh raised(stray2);
    build(raised, rows, 2, 1);
    EXPECT_EQ(raised.numVertices(), 3 + 5) << "the far corner fuses with the stray vertex";
    EXPECT_EQ(vertexAt(raised, MPoint(2.01, 0, 3)), 2);
}

}  // namespace
