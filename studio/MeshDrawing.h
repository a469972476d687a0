#pragma once
// The meshes of the scene as the viewport draws them with OpenGL: the source shaded from vertex
// buffers built once (a dense scan orbits at the cost of one draw call), the retopo meshes as lines
// read again whenever the scene changes.

#include <QtGui/QOpenGLBuffer>
#include <QtGui/QOpenGLFunctions>
#include <string>
#include <vector>

namespace kystrake {

// The source mesh in GPU buffers: world positions and smooth normals per vertex, polygons fanned into
// triangles. Needs the caller's GL context current for every call.
class ShadedMesh : protected QOpenGLFunctions {
public:
    ShadedMesh() = default;
    ~ShadedMesh();
    ShadedMesh(const ShadedMesh&) = delete;
    ShadedMesh& operator=(const ShadedMesh&) = delete;

    // Reads the mesh shape named `shapeName` into the buffers; an unknown name empties them.
    void load(const std::string& shapeName);
    // Draws the triangles with the fixed-function lighting the caller set up.
    void draw();

private:
    void release();

    QOpenGLBuffer vertices_{QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer indices_{QOpenGLBuffer::IndexBuffer};
    int indexCount_ = 0;
    bool functionsReady_ = false;
};

// The edges of every mesh other than the source (intermediate objects left out), in world space, two points a
// line.
std::vector<float> wireframeLines(const std::string& sourceShape);

}  // namespace kystrake
