// Mesh iterators, MItGeometry and single-indexed components, on an open grid and a closed cube, and
// components named by selection strings.

#include <maya/MDataBlock.h>
#include <maya/MFnComponent.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MItGeometry.h>
#include <maya/MItMeshEdge.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MItMeshVertex.h>
#include <maya/MStringArray.h>
#include <maya/MVectorArray.h>

#include "mesh/ProceduralMeshes.h"
#include "support/MeshScene.h"
#include "support/TestPlugin.h"

namespace {

using mhost::driver::runCommand;

// The component a selection string names; a null object when it names none.
MObject componentNamed(const char* text, MDagPath* path = nullptr) {
    MSelectionList list;
    MObject component;
    MDagPath found;
    if (!list.add(text) || !list.getDagPath(0, found, component)) return MObject();
    if (path) *path = found;
    return component;
}

std::vector<int> elementsOf(const MObject& component) {
    MIntArray elements;
    EXPECT_TRUE(MFnSingleIndexedComponent(component).getElements(elements));
    return toVector(elements);
}

MObject vertexComponent(std::initializer_list<int> ids) {
    MFnSingleIndexedComponent fn;
    MObject component = fn.create(MFn::kMeshVertComponent);
    for (int id : ids) fn.addElement(id);
    return component;
}

class MeshApiIterators : public MeshSceneTest {
protected:
    void SetUp() override {
        MeshSceneTest::SetUp();
        cube = addMesh(unitCube(), "cube");
        // 2 x 2 quads, 9 vertices row by row, vertex 4 in the middle.
        grid = addMesh(mhost::makePlaneGrid(2, 2, 2, 2), "grid");
    }
    MDagPath cube, grid;
};

TEST_F(MeshApiIterators, VerticesKnowTheirBoundaryAndNeighbours) {
    int boundary = 0;
    for (MItMeshVertex it(grid); !it.isDone(); it.next()) boundary += it.onBoundary() ? 1 : 0;
    EXPECT_EQ(8, boundary);
    for (MItMeshVertex it(cube); !it.isDone(); it.next()) EXPECT_FALSE(it.onBoundary()) << it.index();

    MItMeshVertex it(grid);
    int previous = -1;
    ASSERT_TRUE(it.setIndex(4, previous));
    EXPECT_EQ(0, previous);
    MIntArray faces, edges, vertices;
    ASSERT_TRUE(it.getConnectedFaces(faces));
    ASSERT_TRUE(it.getConnectedEdges(edges));
    ASSERT_TRUE(it.getConnectedVertices(vertices));
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3}), toVector(faces));
    EXPECT_EQ(4u, edges.length());
    std::vector<int> neighbours = toVector(vertices);
    std::sort(neighbours.begin(), neighbours.end());
    EXPECT_EQ((std::vector<int>{1, 3, 5, 7}), neighbours);
    int opposite = -1;
    ASSERT_TRUE(it.getOppositeVertex(opposite, edges[0]));
    EXPECT_TRUE(opposite == 1 || opposite == 3 || opposite == 5 || opposite == 7);
    EXPECT_EQ(MS::kInvalidParameter, it.setIndex(9, previous).statusCode());
    EXPECT_EQ(4, it.index()) << "a refused setIndex leaves the iterator";
}

TEST_F(MeshApiIterators, VertexPositionsAndNormalsInWorldSpace) {
    ASSERT_TRUE(runCommand("setAttr grid.translate 0 3 0; setAttr grid.rotate 1.5707963267948966 0 0"));
    MItMeshVertex it(grid);
    int previous;
    it.setIndex(4, previous);
    MVector normal;
    ASSERT_TRUE(it.getNormal(normal, MSpace::kWorld));
    EXPECT_TRUE(normal.isEquivalent(MVector(0, 0, 1), 1e-9))
        << normal.x << " " << normal.y << " " << normal.z;
    EXPECT_TRUE(it.position(MSpace::kWorld).isEquivalent(MPoint(0, 3, 0)));
    ASSERT_TRUE(it.setPosition(MPoint(0, 3, 2), MSpace::kWorld));
    EXPECT_TRUE(it.position().isEquivalent(MPoint(0, 2, 0), 1e-9));
    ASSERT_TRUE(it.translateBy(MVector(0, 1, 0)));
    EXPECT_TRUE(it.position().isEquivalent(MPoint(0, 3, 0), 1e-9));
    MVectorArray cornerNormals;
    ASSERT_TRUE(it.getNormals(cornerNormals));
    EXPECT_EQ(4u, cornerNormals.length());
    EXPECT_EQ(MS::kInvalidParameter, it.getNormal(normal, 8).statusCode()) << "grid has faces 0..3";
}

// A world matrix equal to the identity answers as object space does, bit for bit: normals are not
// normalised twice. Any other matrix is applied.
TEST_F(MeshApiIterators, WorldNormalsUnderTheIdentityAreTheObjectNormalsExactly) {
    const MDagPath sphere = addMesh(mhost::makeUvSphere(1.0, 24, 16), "sphere");
    const auto cornerNormals = [&](MSpace::Space space) {
        std::vector<MVector> all;
        MVectorArray normals;
        for (MItMeshPolygon it(sphere); !it.isDone(); it.next()) {
            EXPECT_TRUE(it.getNormals(normals, space));
            for (unsigned i = 0; i < normals.length(); ++i) all.push_back(normals[i]);
        }
        return all;
    };
    const std::vector<MVector> object = cornerNormals(MSpace::kObject);
    EXPECT_EQ(object, cornerNormals(MSpace::kWorld));
    ASSERT_TRUE(runCommand("setAttr sphere.rotate 0 0 1.5707963267948966"));
    const std::vector<MVector> turned = cornerNormals(MSpace::kWorld);
    ASSERT_EQ(object.size(), turned.size());
    EXPECT_TRUE(turned[5].isEquivalent(MVector(-object[5].y, object[5].x, object[5].z), 1e-9));
}

TEST_F(MeshApiIterators, EdgesReportEndsBoundaryFacesAndSmoothing) {
    MItMeshEdge it(grid);
    EXPECT_EQ(12, it.count());
    int boundary = 0;
    for (; !it.isDone(); it.next()) boundary += it.onBoundary() ? 1 : 0;
    EXPECT_EQ(8, boundary);
    ASSERT_TRUE(it.reset());
    EXPECT_EQ(0, it.index(0));
    EXPECT_EQ(1, it.index(1));
    MStatus status;
    it.index(2, &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    double length = 0;
    ASSERT_TRUE(it.getLength(length));
    EXPECT_DOUBLE_EQ(1.0, length);
    EXPECT_TRUE(it.center().isEquivalent(MPoint(-0.5, 0, 1)));
    MIntArray faces, edges;
    EXPECT_EQ(1, it.getConnectedFaces(faces));
    EXPECT_EQ(3, it.getConnectedEdges(edges)) << "one edge at the grid's corner, two at the side's middle";
    ASSERT_TRUE(it.setSmoothing(false));
    EXPECT_FALSE(it.isSmooth());
    EXPECT_FALSE(MFnMesh(grid).isEdgeSmooth(0));
}

TEST_F(MeshApiIterators, PolygonsGiveCornersEdgesNeighboursAndSplitNormalsAtHardEdges) {
    MItMeshPolygon it(cube);
    EXPECT_EQ(6u, it.count());
    int previous;
    ASSERT_TRUE(it.setIndex(3, previous));
    MIntArray vertices, edges, faces;
    ASSERT_TRUE(it.getVertices(vertices));
    EXPECT_EQ((std::vector<int>{2, 6, 7, 3}), toVector(vertices));
    EXPECT_EQ(7u, it.vertexIndex(2));
    ASSERT_TRUE(it.getEdges(edges));
    EXPECT_EQ(4u, edges.length());
    ASSERT_TRUE(it.getConnectedFaces(faces));
    EXPECT_EQ(4u, faces.length());
    EXPECT_FALSE(it.onBoundary());
    EXPECT_TRUE(it.center().isEquivalent(MPoint(0.5, 1, 0.5)));
    MVector corner;
    ASSERT_TRUE(it.getNormal(2u, corner));
    const double third = 1 / std::sqrt(3.0);
    EXPECT_TRUE(corner.isEquivalent(MVector(third, third, third), 1e-9)) << "smooth edges average the corner";
    MFnMesh fn(cube);
    for (int e = 0; e < fn.numEdges(); ++e) fn.setEdgeSmoothing(e, false);
    ASSERT_TRUE(it.getNormal(2u, corner));
    EXPECT_TRUE(corner.isEquivalent(MVector(0, 1, 0), 1e-9)) << "hard edges keep the face's own normal";
    MVectorArray normals;
    ASSERT_TRUE(it.getNormals(normals, MSpace::kWorld));
    EXPECT_EQ(4u, normals.length());
    ASSERT_TRUE(runCommand("setAttr cube.scale 2 1 3"));
    ASSERT_TRUE(it.reset());
    ASSERT_TRUE(it.setIndex(3, previous));
    double area = 0;
    ASSERT_TRUE(it.getArea(area, MSpace::kWorld));
    EXPECT_NEAR(6.0, area, 1e-9);
    EXPECT_EQ(MS::kInvalidParameter, it.getNormal(4u, corner).statusCode());
}

TEST_F(MeshApiIterators, SelectionStringsNameComponentsOfTheShapeOrItsTransform) {
    MDagPath path;
    MObject vertices = componentNamed("cubeShape.vtx[2:5]", &path);
    ASSERT_FALSE(vertices.isNull());
    EXPECT_EQ(MFn::kMeshVertComponent, vertices.apiType());
    EXPECT_EQ(cube, path);
    EXPECT_EQ((std::vector<int>{2, 3, 4, 5}), elementsOf(vertices));
    MObject edge = componentNamed("cube.e[7]", &path);
    EXPECT_EQ(MFn::kMeshEdgeComponent, edge.apiType());
    EXPECT_EQ(cube, path) << "through the transform, the path ends at the shape";
    EXPECT_EQ(std::vector<int>{7}, elementsOf(edge));
    EXPECT_EQ(MFn::kMeshPolygonComponent, componentNamed("cube.f[0:3]").apiType());
    EXPECT_EQ(8u, elementsOf(componentNamed("cube.vtx[*]")).size());
    for (const char* bad :
         {"cube.vtx[8]", "cube.vtx[3:1]", "cube.e[12]", "cube.f[-1]", "cube.vtx[x]", "cube.uv[0]"})
        EXPECT_TRUE(componentNamed(bad).isNull()) << bad;

    MSelectionList list;
    list.add(cube, vertexComponent({4, 1, 3}));
    list.add("cube.vtx[0:2]");
    MStringArray names;
    list.getSelectionStrings(names);
    ASSERT_EQ(2u, names.length());
    EXPECT_STREQ("cubeShape.vtx[1,3:4]", names[0].asChar());
    EXPECT_STREQ("cubeShape.vtx[0:2]", names[1].asChar());
    EXPECT_EQ((std::vector<int>{1, 3, 4}), elementsOf(componentNamed(names[0].asChar())));
}

TEST_F(MeshApiIterators, IteratorsWalkAComponentInItsOrderAndRefuseOtherKinds) {
    MObject component = vertexComponent({6, 1, 6, 3});
    std::vector<int> visited;
    for (MItMeshVertex it(cube, component); !it.isDone(); it.next()) visited.push_back(it.index());
    EXPECT_EQ((std::vector<int>{6, 1, 3}), visited);
    MStatus status;
    MObject faces = componentNamed("cube.f[1]");
    MItMeshVertex wrongKind(cube, faces, &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    EXPECT_TRUE(wrongKind.isDone());
    MItMeshPolygon polygons(cube, faces);
    EXPECT_EQ(1u, polygons.count());
    EXPECT_EQ(1u, polygons.index());
}

TEST_F(MeshApiIterators, SingleIndexedComponentsKeepOrderAndRefuseBadInput) {
    MFnSingleIndexedComponent fn;
    MStatus status;
    EXPECT_TRUE(fn.create(MFn::kMesh, &status).isNull());
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    MObject component = fn.create(MFn::kMeshEdgeComponent);
    EXPECT_TRUE(fn.isEmpty());
    EXPECT_EQ(-1, fn.elementMax());
    MIntArray ids = intArray({5, 2, 5, 9});
    ASSERT_TRUE(fn.addElements(ids));
    EXPECT_EQ(MS::kInvalidParameter, fn.addElement(-1).statusCode());
    MIntArray withNegative = intArray({1, -4});
    EXPECT_EQ(MS::kInvalidParameter, fn.addElements(withNegative).statusCode());
    EXPECT_EQ((std::vector<int>{5, 2, 9}), elementsOf(component));
    EXPECT_EQ(3, fn.elementCount());
    EXPECT_EQ(9, fn.elementMax());
    EXPECT_EQ(2, fn.element(1));
    fn.element(3, &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    EXPECT_EQ(MFn::kMeshEdgeComponent, MFnComponent(component).componentType());
    MFnSingleIndexedComponent other;
    MObject same = other.create(MFn::kMeshEdgeComponent);
    for (int id : {9, 5, 2}) other.addElement(id);
    EXPECT_TRUE(MFnComponent(component).isEqual(same));

    // Long components drop repeats as short ones do, before and after they grow past a few dozen.
    MFnSingleIndexedComponent many;
    many.create(MFn::kMeshVertComponent);
    for (int round = 0; round < 2; ++round)
        for (int id = 0; id < 40; ++id) many.addElement(id * 7 % 40);
    EXPECT_EQ(40, many.elementCount());
    EXPECT_EQ(7, many.element(1)) << "the first round's order is kept";
    ASSERT_TRUE(many.addElement(40));
    EXPECT_EQ(41, many.elementCount());
}

TEST_F(MeshApiIterators, GeometryIteratorReadsAndWritesTheVerticesAComponentNames) {
    ASSERT_TRUE(runCommand("setAttr cube.translate 0 0 5"));
    MObject edge = componentNamed("cube.e[0]");
    MItGeometry it(cube, edge);
    EXPECT_EQ(2, it.count());
    MPointArray positions;
    ASSERT_TRUE(it.allPositions(positions, MSpace::kWorld));
    ASSERT_EQ(2u, positions.length());
    EXPECT_TRUE(positions[1].isEquivalent(MPoint(0, 1, 5)));
    positions[1] = MPoint(0, 2, 5);
    ASSERT_TRUE(it.setAllPositions(positions, MSpace::kWorld));
    MPoint moved;
    MFnMesh(cube).getPoint(2, moved);
    EXPECT_TRUE(moved.isEquivalent(MPoint(0, 2, 0)));
    positions.append(MPoint());
    EXPECT_EQ(MS::kInvalidParameter, it.setAllPositions(positions).statusCode());
    MFnMesh(cube).getPoint(2, moved);
    EXPECT_TRUE(moved.isEquivalent(MPoint(0, 2, 0))) << "a refused write moves nothing";
    EXPECT_EQ(0, it.index());
    EXPECT_TRUE(it.normal(MSpace::kWorld).isEquivalent(MVector(-1, -1, -1).normal(), 1e-6));
    MItGeometry whole(cube);
    EXPECT_EQ(8, whole.count());
}

TEST_F(MeshApiIterators, GeometryIteratorPassesOverVertexIdsTheMeshLacks) {
    MFnSingleIndexedComponent vertices;
    MObject component = vertices.create(MFn::kMeshVertComponent);
    for (int id : {6, 7, 8, 9}) vertices.addElement(id);
    MStatus status;
    MItGeometry it(cube, component, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(2, it.count());
    MPointArray positions;
    ASSERT_TRUE(it.allPositions(positions));
    EXPECT_EQ(2u, positions.length());
}

TEST_F(MeshApiIterators, GeometryIteratorRefusesIdsTheMeshNoLongerHas) {
    MFnSingleIndexedComponent vertices;
    MObject component = vertices.create(MFn::kMeshVertComponent);
    for (int id : {1, 7}) vertices.addElement(id);
    MItGeometry it(cube, component);
    const MPointArray square =
        pointArray({MPoint(0, 0, 0), MPoint(1, 0, 0), MPoint(1, 1, 0), MPoint(0, 1, 0)});
    MObject shape = cube.node();
    ASSERT_FALSE(MFnMesh().create(4, 1, square, intArray({4}), intArray({0, 1, 2, 3}), shape).isNull());

    MPointArray positions = pointArray({MPoint(9, 9, 9)});
    EXPECT_FALSE(it.allPositions(positions));
    ASSERT_EQ(1u, positions.length()) << "a refused read leaves the array as it was";
    EXPECT_FALSE(it.setAllPositions(pointArray({MPoint(5, 5, 5), MPoint(5, 5, 5)})));
    MPoint kept;
    MFnMesh(cube).getPoint(1, kept);
    EXPECT_TRUE(kept.isEquivalent(MPoint(1, 0, 0))) << "a refused write moves nothing";
}

// A node whose output is its input mesh lifted by one unit, moved in place through a writable
// geometry iterator over the input's data handle.
class LiftNode : public MPxNode {
public:
    static void* creator() { return new LiftNode; }
    static MStatus initialize() {
        MFnTypedAttribute typed;
        input = typed.create("inputMesh", "im", MFnData::kMesh);
        output = typed.create("outputMesh", "om", MFnData::kMesh);
        typed.setWritable(false);
        typed.setStorable(false);
        addAttribute(input);
        addAttribute(output);
        return attributeAffects(input, output);
    }
    MStatus compute(const MPlug& plug, MDataBlock& data) override {
        if (plug != output) return MS::kUnknownParameter;
        MDataHandle in = data.inputValue(input);
        MItGeometry readOnly(in);
        readOnlyRefused = readOnly.setPosition(MPoint()).statusCode() == MS::kFailure;
        MItGeometry it(in, 0u, false);
        MPointArray points;
        it.allPositions(points);
        for (unsigned int i = 0; i < points.length(); ++i) points[i].y += 1;
        it.setAllPositions(points);
        data.outputValue(output).set(in.asMesh());
        return data.setClean(plug);
    }
    static MObject input, output;
    static bool readOnlyRefused;
};

MObject LiftNode::input, LiftNode::output;
bool LiftNode::readOnlyRefused = false;

class MeshApiHandles : public TestPluginFixture {};

TEST_F(MeshApiHandles, AWritableIteratorMovesTheMeshOfTheHandleAndAReadOnlyOneRefuses) {
    ASSERT_TRUE(registerNode("meshLift", 0x7301, LiftNode::creator, LiftNode::initialize));
    MDagPath source = addMesh(unitCube(), "source");
    ASSERT_TRUE(runCommand(
        "createNode meshLift -n lift; createNode mesh -n liftedShape;"
        "connectAttr sourceShape.outMesh lift.inputMesh; connectAttr lift.outputMesh liftedShape.inMesh"));
    MPoint p;
    ASSERT_TRUE(MFnMesh(pathTo("liftedShape")).getPoint(7, p));
    EXPECT_TRUE(p.isEquivalent(MPoint(1, 2, 1)));
    EXPECT_TRUE(LiftNode::readOnlyRefused);
    MFnMesh(source).getPoint(7, p);
    EXPECT_TRUE(p.isEquivalent(MPoint(1, 1, 1))) << "the upstream mesh keeps its points";
}

}  // namespace
