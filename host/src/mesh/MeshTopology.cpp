#include "mesh/MeshTopology.h"

#include <algorithm>
#include <atomic>

#include "core/ApiObject.h"
#include "core/LargeArrays.h"
#include "mesh/MeshNormals.h"
#include "mesh/PointMergeGrid.h"

namespace mhost {
namespace {

constexpr const char* kOwner = "MeshTopology";

[[noreturn]] void fail(const std::string& message) { throw HostError(std::string(kOwner) + ": " + message); }

// Versions come from one counter for all meshes, so equal versions mean equal content.
std::uint64_t nextVersion() {
    static std::atomic<std::uint64_t> counter{0};
    return ++counter;
}

void requireFinite(const std::vector<Vec3f>& points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!isFinite(points[i])) fail("point " + std::to_string(i) + " is not finite");
    }
}

CompressedRows validatedFaces(int numVertices, const std::vector<int>& counts, std::vector<int> connects) {
    CompressedRows faces;
    reserveLarge(faces.offsets, counts.size() + 1);
    for (std::size_t f = 0; f < counts.size(); ++f) {
        if (counts[f] < 3)
            fail("polygon " + std::to_string(f) + " has " + std::to_string(counts[f]) +
                 " corners, 3 are needed");
        if (static_cast<std::size_t>(faces.offsets.back()) + counts[f] > connects.size()) {
            fail("the polygon counts add up to more than the " + std::to_string(connects.size()) +
                 " connects");
        }
        faces.offsets.push_back(faces.offsets.back() + counts[f]);
    }
    if (static_cast<std::size_t>(faces.offsets.back()) != connects.size()) {
        fail("the polygon counts add up to " + std::to_string(faces.offsets.back()) + " but there are " +
             std::to_string(connects.size()) + " connects");
    }
    faces.items = std::move(connects);
    std::vector<int> lastFaceUsing(numVertices, -1);
    for (int f = 0; f < faces.numRows(); ++f) {
        for (int v : faces.row(f)) {
            if (v < 0 || v >= numVertices) {
                fail("polygon " + std::to_string(f) + " uses vertex " + std::to_string(v) +
                     " but there are " + std::to_string(numVertices) + " points");
            }
            if (lastFaceUsing[v] == f)
                fail("polygon " + std::to_string(f) + " uses vertex " + std::to_string(v) + " twice");
            lastFaceUsing[v] = f;
        }
    }
    return faces;
}

}  // namespace

MeshTopology::MeshTopology() : version_(nextVersion()), facesVersion_(version_) {}

MeshTopology::MeshTopology(std::vector<Vec3f> points, const std::vector<int>& polygonCounts,
                           std::vector<int> polygonConnects)
    : version_(nextVersion()), facesVersion_(version_) {
    requireFinite(points);
    faces_ = validatedFaces(static_cast<int>(points.size()), polygonCounts, std::move(polygonConnects));
    reserveLarge(coords_, points.size() * 3);
    for (const Vec3f& p : points) coords_.insert(coords_.end(), {p.x, p.y, p.z});
    uvSets_ = UvSets(numFaceVertices());
}

Vec3f MeshTopology::point(int vertex) const {
    checkIndex(kOwner, "vertex", vertex, numVertices());
    const float* p = coords_.data() + 3 * static_cast<std::size_t>(vertex);
    return {p[0], p[1], p[2]};
}

void MeshTopology::setPoint(int vertex, const Vec3f& p) {
    checkIndex(kOwner, "vertex", vertex, numVertices());
    if (!isFinite(p)) fail("setPoint: vertex " + std::to_string(vertex) + " would not be finite");
    float* stored = coords_.data() + 3 * static_cast<std::size_t>(vertex);
    stored[0] = p.x;
    stored[1] = p.y;
    stored[2] = p.z;
    pointMoved(vertex);
}

void MeshTopology::setPoints(const std::vector<Vec3f>& points) {
    if (points.size() != static_cast<std::size_t>(numVertices())) {
        fail("setPoints: " + std::to_string(points.size()) + " points given for " +
             std::to_string(numVertices()) + " vertices");
    }
    requireFinite(points);
    for (std::size_t i = 0; i < points.size(); ++i) {
        coords_[3 * i] = points[i].x;
        coords_[3 * i + 1] = points[i].y;
        coords_[3 * i + 2] = points[i].z;
    }
    pointsChanged();
}

IndexRange MeshTopology::faceVertices(int face) const {
    checkIndex(kOwner, "face", face, numFaces());
    return faces_.row(face);
}

std::vector<int> MeshTopology::polygonCounts() const {
    std::vector<int> counts(numFaces());
    for (int f = 0; f < numFaces(); ++f) counts[f] = faces_.offsets[f + 1] - faces_.offsets[f];
    return counts;
}

int MeshTopology::addPolygon(const std::vector<Vec3>& corners, bool mergeVertices, double pointTolerance) {
    for (const Vec3& corner : corners) {
        if (!isFinite(corner)) fail("addPolygon: a corner is not a finite point");
    }
    std::vector<Vec3> newPoints;
    const std::vector<int> polygon = resolveCorners(corners, mergeVertices, pointTolerance, newPoints);
    if (polygon.size() < 3) {
        fail("addPolygon: degenerate polygon, " + std::to_string(polygon.size()) + " distinct vertices");
    }
    for (const Vec3& p : newPoints) appendPoint(p);
    faces_.items.insert(faces_.items.end(), polygon.begin(), polygon.end());
    faces_.offsets.push_back(static_cast<int>(faces_.items.size()));
    uvSets_.appendUnassigned(static_cast<int>(polygon.size()));
    polygonsChanged();
    return numFaces() - 1;
}

// Decides each corner's vertex without touching the mesh, so a rejected polygon leaves no trace.
// Vertices the polygon would create are listed in newPoints (ids numVertices() onwards).
std::vector<int> MeshTopology::resolveCorners(const std::vector<Vec3>& corners, bool mergeVertices,
                                              double pointTolerance, std::vector<Vec3>& newPoints) {
    const PointMergeGrid* grid = mergeVertices ? &mergeGrid(pointTolerance) : nullptr;
    const double reach = pointTolerance * pointTolerance;
    std::vector<int> polygon;
    for (const Vec3& corner : corners) {
        int vertex = grid ? grid->findNearest(corner) : -1;
        double nearest = vertex < 0 ? reach : lengthSquared(Vec3(point(vertex)) - corner);
        for (std::size_t i = 0; grid && i < newPoints.size(); ++i) {
            const double d = lengthSquared(newPoints[i] - corner);
            if (d > nearest || (d == nearest && vertex >= 0)) continue;
            vertex = numVertices() + static_cast<int>(i);
            nearest = d;
        }
        if (vertex < 0) {
            vertex = numVertices() + static_cast<int>(newPoints.size());
            newPoints.push_back(Vec3(Vec3f(corner)));
        }
        if (std::find(polygon.begin(), polygon.end(), vertex) == polygon.end()) polygon.push_back(vertex);
    }
    return polygon;
}

PointMergeGrid& MeshTopology::mergeGrid(double tolerance) {
    auto& grid = derived_.mergeGrid;
    if (grid && grid->tolerance() == tolerance) return *grid;
    grid = std::make_shared<PointMergeGrid>(tolerance);
    grid->reserve(numVertices());
    for (int v = 0; v < numVertices(); ++v) grid->insert(v, Vec3(point(v)));
    return *grid;
}

void MeshTopology::appendPoint(const Vec3& p) {
    const Vec3f stored(p);
    coords_.insert(coords_.end(), {stored.x, stored.y, stored.z});
    auto& grid = derived_.mergeGrid;
    if (!grid) return;
    if (grid.use_count() > 1) grid = std::make_shared<PointMergeGrid>(*grid);
    grid->insert(numVertices() - 1, Vec3(stored));
}

const MeshAdjacency& MeshTopology::adjacency() const {
    if (!derived_.adjacency)
        derived_.adjacency = std::make_shared<const MeshAdjacency>(numVertices(), faces_);
    return *derived_.adjacency;
}

const std::vector<Vec3>& MeshTopology::faceNormals() const {
    updateMovedNormals();
    auto& cached = derived_.faceNormals;
    if (!cached) cached = std::make_shared<std::vector<Vec3>>(computeFaceNormals(*this));
    return *cached;
}

const std::vector<Vec3>& MeshTopology::vertexNormals(bool angleWeighted) const {
    updateMovedNormals();
    auto& cached = derived_.vertexNormals[angleWeighted ? 1 : 0];
    if (!cached) cached = std::make_shared<std::vector<Vec3>>(computeVertexNormals(*this, angleWeighted));
    return *cached;
}

std::shared_ptr<const std::vector<Vec3>> MeshTopology::sharedFaceNormals() const {
    faceNormals();
    return derived_.faceNormals;
}

std::shared_ptr<const std::vector<Vec3>> MeshTopology::sharedVertexNormals(bool angleWeighted) const {
    vertexNormals(angleWeighted);
    return derived_.vertexNormals[angleWeighted ? 1 : 0];
}

Vec3 MeshTopology::faceVertexNormal(int face, int corner) const {
    auto& split = derived_.splitCornerNormals;
    if (!split) split = std::make_shared<const SplitCornerNormals>(computeSplitCornerNormals(*this));
    const int vertex = faces_.items[corner];
    const Vec3 n = split->splitVertex[vertex] ? split->cornerNormal.at(corner) : vertexNormals(true)[vertex];
    return lengthSquared(n) > 0 ? n : faceNormals()[face];
}

bool MeshTopology::isEdgeSmooth(int edge) const {
    checkIndex(kOwner, "edge", edge, numEdges());
    return static_cast<std::size_t>(edge) >= hardEdges_.size() || !hardEdges_[edge];
}

bool MeshTopology::hasHardEdges() const {
    return std::find(hardEdges_.begin(), hardEdges_.end(), 1) != hardEdges_.end();
}

void MeshTopology::setEdgeSmooth(int edge, bool smooth) {
    checkIndex(kOwner, "edge", edge, numEdges());
    if (hardEdges_.size() <= static_cast<std::size_t>(edge)) hardEdges_.resize(numEdges(), 0);
    hardEdges_[edge] = smooth ? 0 : 1;
    derived_.splitCornerNormals.reset();
    version_ = nextVersion();
}

void MeshTopology::setEdgesSmooth(const std::vector<int>& edges, const std::vector<int>& smooth) {
    const int count = numEdges();
    for (int edge : edges) checkIndex(kOwner, "edge", edge, count);
    if (hardEdges_.size() < static_cast<std::size_t>(count)) hardEdges_.resize(count, 0);
    for (std::size_t i = 0; i < edges.size(); ++i) hardEdges_[edges[i]] = smooth[i] != 0 ? 0 : 1;
    derived_.splitCornerNormals.reset();
    version_ = nextVersion();
}

void MeshTopology::createUvSet(const std::string& name) {
    uvSets_.create(name);
    version_ = nextVersion();
}

void MeshTopology::setCurrentUvSet(const std::string& name) {
    uvSets_.setCurrent(name);
    version_ = nextVersion();
}

void MeshTopology::setUvs(const std::string& name, std::vector<float> u, std::vector<float> v) {
    uvSets_.setUvs(name, std::move(u), std::move(v));
    version_ = nextVersion();
}

void MeshTopology::assignUvs(const std::string& name, const std::vector<int>& uvCounts,
                             const std::vector<int>& uvIds) {
    uvSets_.assignUvs(name, faces_, uvCounts, uvIds);
    version_ = nextVersion();
}

Box3 MeshTopology::boundingBox() const {
    if (!derived_.bounds) {
        Box3 box;
        for (int v = 0; v < numVertices(); ++v) box.expand(Vec3(point(v)));
        derived_.bounds = box;
    }
    return *derived_.bounds;
}

// New polygons keep every vertex where it was, so the merge grid stays valid.
void MeshTopology::polygonsChanged() {
    derived_ = Derived{nullptr, nullptr, {}, nullptr, std::nullopt, std::move(derived_.mergeGrid), {}};
    version_ = nextVersion();
    facesVersion_ = version_;
}

// Which vertices are split depends on the polygons and the hard edges alone; only the normals of the
// split vertices' corners follow the points. Without a split vertex nothing is left to redo.
std::shared_ptr<const SplitCornerNormals> MeshTopology::splitCornersKeptByMoves() {
    auto& split = derived_.splitCornerNormals;
    return split && split->cornerNormal.empty() ? std::move(split) : nullptr;
}

void MeshTopology::pointsChanged() {
    derived_ = Derived{
        std::move(derived_.adjacency), nullptr, {}, splitCornersKeptByMoves(), std::nullopt, nullptr, {}};
    version_ = nextVersion();
}

// Past a quarter of the vertices, one whole pass costs less than the updates would.
void MeshTopology::pointMoved(int vertex) {
    Derived kept{std::move(derived_.adjacency),
                 std::move(derived_.faceNormals),
                 {std::move(derived_.vertexNormals[0]), std::move(derived_.vertexNormals[1])},
                 splitCornersKeptByMoves(),
                 std::nullopt,
                 nullptr,
                 std::move(derived_.movedVertices)};
    if (kept.faceNormals && 4 * (kept.movedVertices.size() + 1) <= static_cast<std::size_t>(numVertices())) {
        kept.movedVertices.push_back(vertex);
    } else {
        kept.faceNormals.reset();
        kept.vertexNormals[0].reset();
        kept.vertexNormals[1].reset();
        kept.movedVertices.clear();
    }
    derived_ = std::move(kept);
    version_ = nextVersion();
}

namespace {

// Each id of `ids` (all below `count`) once, in order of first appearance. A bit per possible id costs
// less than sorting the thousands of ids a brush stroke moves.
std::vector<int> uniqueIds(const std::vector<int>& ids, int count) {
    std::vector<bool> seen(static_cast<std::size_t>(count));
    std::vector<int> unique;
    unique.reserve(ids.size());
    for (int id : ids) {
        if (seen[id]) continue;
        seen[id] = true;
        unique.push_back(id);
    }
    return unique;
}

// The cached array itself when nothing else shares it, else a copy of it put in its place.
std::vector<Vec3>& ownCopy(std::shared_ptr<std::vector<Vec3>>& shared) {
    if (shared.use_count() > 1) shared = std::make_shared<std::vector<Vec3>>(*shared);
    return *shared;
}

}  // namespace

// A moved vertex changes the normals of its polygons, and so those of every vertex of those polygons.
void MeshTopology::updateMovedNormals() const {
    if (derived_.movedVertices.empty()) return;
    const MeshAdjacency& around = adjacency();
    std::vector<int> faces;
    for (int vertex : derived_.movedVertices)
        for (int face : around.vertexFaces(vertex)) faces.push_back(face);
    faces = uniqueIds(faces, numFaces());
    std::vector<int> vertices;
    for (int face : faces)
        for (int vertex : faces_.row(face)) vertices.push_back(vertex);
    vertices = uniqueIds(vertices, numVertices());

    std::vector<Vec3>& faceNormals = ownCopy(derived_.faceNormals);
    updateFaceNormals(*this, faces, faceNormals);
    for (bool angleWeighted : {false, true}) {
        Normals& cached = derived_.vertexNormals[angleWeighted ? 1 : 0];
        if (cached) updateVertexNormals(*this, faceNormals, vertices, angleWeighted, ownCopy(cached));
    }
    derived_.movedVertices.clear();
}

}  // namespace mhost
