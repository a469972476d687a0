#include "studio/MeshDrawing.h"

#include <maya/MDagPath.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MItDag.h>
#include <maya/MSelectionList.h>

#include <cmath>

namespace kystrake {
namespace {

struct ShadedVertex {
    float position[3];
    float normal[3];
};

// Per-vertex normals as the sum of the area-weighted normals of the triangles around each vertex.
void addSmoothNormals(std::vector<ShadedVertex>& vertices, const std::vector<unsigned int>& triangles) {
    for (size_t t = 0; t + 2 < triangles.size(); t += 3) {
        const float* a = vertices[triangles[t]].position;
        const float* b = vertices[triangles[t + 1]].position;
        const float* c = vertices[triangles[t + 2]].position;
        const float u[3] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
        const float v[3] = {c[0] - a[0], c[1] - a[1], c[2] - a[2]};
        const float n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
        for (int corner = 0; corner < 3; ++corner)
            for (int i = 0; i < 3; ++i) vertices[triangles[t + corner]].normal[i] += n[i];
    }
    for (ShadedVertex& vertex : vertices) {
        float* n = vertex.normal;
        const float length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
        if (length > 0)
            for (int i = 0; i < 3; ++i) n[i] /= length;
    }
}

bool meshPathNamed(const std::string& name, MDagPath& path) {
    MSelectionList list;
    return list.add(name.c_str()) && list.getDagPath(0, path) && path.extendToShape() &&
           path.hasFn(MFn::kMesh);
}

}  // namespace

ShadedMesh::~ShadedMesh() { release(); }

void ShadedMesh::release() {
    if (vertices_.isCreated()) vertices_.destroy();
    if (indices_.isCreated()) indices_.destroy();
    indexCount_ = 0;
}

void ShadedMesh::load(const std::string& shapeName) {
    if (!functionsReady_) {
        initializeOpenGLFunctions();
        functionsReady_ = true;
    }
    release();
    MDagPath path;
    if (!meshPathNamed(shapeName, path)) return;
    MFnMesh mesh(path);
    MFloatPointArray points;
    mesh.getPoints(points, MSpace::kWorld);
    MIntArray counts, connects;
    mesh.getVertices(counts, connects);
    std::vector<ShadedVertex> vertices(points.length());
    for (unsigned int i = 0; i < points.length(); ++i)
        vertices[i] = {{points[i].x, points[i].y, points[i].z}, {0, 0, 0}};
    std::vector<unsigned int> triangles;
    unsigned int first = 0;
    for (unsigned int p = 0; p < counts.length(); first += counts[p++])
        for (int corner = 1; corner + 1 < counts[p]; ++corner)
            triangles.insert(triangles.end(), {unsigned(connects[first]), unsigned(connects[first + corner]),
                                               unsigned(connects[first + corner + 1])});
    addSmoothNormals(vertices, triangles);
    vertices_.create();
    vertices_.bind();
    vertices_.allocate(vertices.data(), int(vertices.size() * sizeof(ShadedVertex)));
    indices_.create();
    indices_.bind();
    indices_.allocate(triangles.data(), int(triangles.size() * sizeof(unsigned int)));
    indexCount_ = int(triangles.size());
    vertices_.release();
    indices_.release();
}

void ShadedMesh::draw() {
    if (!indexCount_) return;
    vertices_.bind();
    indices_.bind();
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(ShadedVertex), nullptr);
    glNormalPointer(GL_FLOAT, sizeof(ShadedVertex), reinterpret_cast<void*>(offsetof(ShadedVertex, normal)));
    glDrawElements(GL_TRIANGLES, indexCount_, GL_UNSIGNED_INT, nullptr);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    vertices_.release();
    indices_.release();
}

std::vector<float> wireframeLines(const std::string& sourceShape) {
    std::vector<float> lines;
    MDagPath path;
    for (MItDag it(MItDag::kDepthFirst, MFn::kMesh); !it.isDone(); it.next()) {
        it.getPath(path);
        MFnMesh mesh(path);
        if (path.partialPathName() == sourceShape.c_str() || mesh.isIntermediateObject()) continue;
        MFloatPointArray points;
        mesh.getPoints(points, MSpace::kWorld);
        MIntArray counts, connects;
        mesh.getVertices(counts, connects);
        unsigned int first = 0;
        for (unsigned int p = 0; p < counts.length(); first += counts[p++])
            for (int corner = 0; corner < counts[p]; ++corner) {
                const MFloatPoint& a = points[connects[first + corner]];
                const MFloatPoint& b = points[connects[first + (corner + 1) % counts[p]]];
                lines.insert(lines.end(), {a.x, a.y, a.z, b.x, b.y, b.z});
            }
    }
    return lines;
}

}  // namespace kystrake
