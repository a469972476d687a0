#include "mesh/ProceduralMeshes.h"

#include <cmath>
#include <optional>
#include <string>

#include "core/ApiObject.h"

namespace mhost {
namespace {

constexpr double kPi = 3.14159265358979323846;

void requirePositive(const char* maker, const char* what, double value) {
    if (!(value > 0) || !std::isfinite(value)) {
        throw HostError(std::string(maker) + ": " + what + " must be positive and finite");
    }
}

void requireAtLeast(const char* maker, const char* what, int value, int minimum) {
    if (value < minimum) {
        throw HostError(std::string(maker) + ": " + what + " must be at least " + std::to_string(minimum) +
                        ", got " + std::to_string(value));
    }
}

// Point on a circle of the given radius in the plane spanned by the unit vectors a and b.
Vec3 onCircle(const Vec3& centre, const Vec3& a, const Vec3& b, double radius, double angle) {
    return centre + (a * std::cos(angle) + b * std::sin(angle)) * radius;
}

// A surface made of rings of `sides` points each, one after the other along the surface: quads join
// neighbouring rings (and the last ring to the first when `closed`), and triangle fans close the ends
// at optional poles. With each ring's points at angles that grow from a unit vector `a` towards `b`
// and the rings advancing along b x a, the quads face outward.
struct RingSurface {
    int sides = 0;
    std::vector<std::vector<Vec3>> rings;
    bool closed = false;
    std::optional<Vec3> startPole;
    std::optional<Vec3> endPole;
};

class MeshArrays {
public:
    explicit MeshArrays(const RingSurface& surface) : surface_(surface) {}

    MeshTopology build() {
        addPoints();
        addUvs();
        addFaces();
        MeshTopology mesh(std::move(points_), counts_, std::move(connects_));
        mesh.setUvs(UvSets::kDefaultSetName, std::move(u_), std::move(v_));
        mesh.assignUvs(UvSets::kDefaultSetName, counts_, uvIds_);
        return mesh;
    }

private:
    int numRings() const { return static_cast<int>(surface_.rings.size()); }
    int vertex(int ring, int side) const {
        return (ring % numRings()) * surface_.sides + side % surface_.sides;
    }
    // UVs form a (rows x (sides + 1)) grid, the seam column doubled; pole UVs follow, one per side.
    int uvRows() const { return numRings() + (surface_.closed ? 1 : 0); }
    int uv(int ring, int side) const { return ring * (surface_.sides + 1) + side; }

    void addPoints() {
        for (const auto& ring : surface_.rings) {
            for (const Vec3& p : ring) points_.emplace_back(p);
        }
        if (surface_.startPole) points_.emplace_back(*surface_.startPole);
        if (surface_.endPole) points_.emplace_back(*surface_.endPole);
    }

    void addUvs() {
        const int poles = (surface_.startPole ? 1 : 0) + (surface_.endPole ? 1 : 0);
        const double spans = uvRows() - 1 + poles;
        const double first = surface_.startPole ? 1 : 0;
        for (int r = 0; r < uvRows(); ++r) {
            for (int s = 0; s <= surface_.sides; ++s) addUv(double(s) / surface_.sides, (first + r) / spans);
        }
        if (surface_.startPole) addPoleUvs(0.0);
        if (surface_.endPole) addPoleUvs(1.0);
    }

    // One UV per pole triangle, centred over its side, so the texture does not pinch to one point.
    void addPoleUvs(double v) {
        for (int s = 0; s < surface_.sides; ++s) addUv((s + 0.5) / surface_.sides, v);
    }

    void addFaces() {
        const int sides = surface_.sides;
        const int poleUvs = uvRows() * (sides + 1);
        int nextPole = numRings() * sides;
        if (surface_.startPole) {
            for (int s = 0; s < sides; ++s) {
                addFace({nextPole, vertex(0, s), vertex(0, s + 1)}, {poleUvs + s, uv(0, s), uv(0, s + 1)});
            }
            ++nextPole;
        }
        const int bands = surface_.closed ? numRings() : numRings() - 1;
        for (int r = 0; r < bands; ++r) {
            for (int s = 0; s < sides; ++s) {
                addFace({vertex(r, s), vertex(r + 1, s), vertex(r + 1, s + 1), vertex(r, s + 1)},
                        {uv(r, s), uv(r + 1, s), uv(r + 1, s + 1), uv(r, s + 1)});
            }
        }
        if (surface_.endPole) {
            const int last = numRings() - 1;
            const int endUvs = poleUvs + (surface_.startPole ? sides : 0);
            for (int s = 0; s < sides; ++s) {
                addFace({vertex(last, s), nextPole, vertex(last, s + 1)},
                        {uv(last, s), endUvs + s, uv(last, s + 1)});
            }
        }
    }

    void addUv(double u, double v) {
        u_.push_back(float(u));
        v_.push_back(float(v));
    }

    void addFace(std::initializer_list<int> vertices, std::initializer_list<int> uvs) {
        counts_.push_back(static_cast<int>(vertices.size()));
        connects_.insert(connects_.end(), vertices);
        uvIds_.insert(uvIds_.end(), uvs);
    }

    const RingSurface& surface_;
    std::vector<Vec3f> points_;
    std::vector<int> counts_, connects_, uvIds_;
    std::vector<float> u_, v_;
};

const Vec3 kX{1, 0, 0}, kY{0, 1, 0}, kZ{0, 0, 1};

}  // namespace

MeshTopology makePlaneGrid(double width, double depth, int columns, int rows) {
    constexpr const char* kMaker = "makePlaneGrid";
    requirePositive(kMaker, "width", width);
    requirePositive(kMaker, "depth", depth);
    requireAtLeast(kMaker, "columns", columns, 1);
    requireAtLeast(kMaker, "rows", rows, 1);
    std::vector<Vec3f> points;
    std::vector<float> u, v;
    for (int j = 0; j <= rows; ++j) {
        for (int i = 0; i <= columns; ++i) {
            points.emplace_back(Vec3(-width / 2 + width * i / columns, 0.0, depth / 2 - depth * j / rows));
            u.push_back(float(double(i) / columns));
            v.push_back(float(double(j) / rows));
        }
    }
    std::vector<int> counts(static_cast<std::size_t>(columns) * rows, 4), connects;
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < columns; ++i) {
            const int a = j * (columns + 1) + i;
            connects.insert(connects.end(), {a, a + 1, a + columns + 2, a + columns + 1});
        }
    }
    MeshTopology mesh(std::move(points), counts, connects);
    mesh.setUvs(UvSets::kDefaultSetName, std::move(u), std::move(v));
    mesh.assignUvs(UvSets::kDefaultSetName, counts, connects);
    return mesh;
}

MeshTopology makeUvSphere(double radius, int axisDivisions, int heightDivisions) {
    constexpr const char* kMaker = "makeUvSphere";
    requirePositive(kMaker, "radius", radius);
    requireAtLeast(kMaker, "axisDivisions", axisDivisions, 3);
    requireAtLeast(kMaker, "heightDivisions", heightDivisions, 2);
    RingSurface surface;
    surface.sides = axisDivisions;
    for (int j = 1; j < heightDivisions; ++j) {
        const double latitude = -kPi / 2 + kPi * j / heightDivisions;
        const Vec3 centre = kY * (radius * std::sin(latitude));
        auto& ring = surface.rings.emplace_back();
        for (int s = 0; s < axisDivisions; ++s) {
            ring.push_back(
                onCircle(centre, kX, kZ, radius * std::cos(latitude), 2 * kPi * s / axisDivisions));
        }
    }
    surface.startPole = kY * -radius;
    surface.endPole = kY * radius;
    return MeshArrays(surface).build();
}

MeshTopology makeTorus(double majorRadius, double minorRadius, int ringDivisions, int sideDivisions) {
    constexpr const char* kMaker = "makeTorus";
    requirePositive(kMaker, "majorRadius", majorRadius);
    requirePositive(kMaker, "minorRadius", minorRadius);
    requireAtLeast(kMaker, "ringDivisions", ringDivisions, 3);
    requireAtLeast(kMaker, "sideDivisions", sideDivisions, 3);
    RingSurface surface;
    surface.sides = sideDivisions;
    surface.closed = true;
    for (int r = 0; r < ringDivisions; ++r) {
        // Rings turn right-handedly about +Y and tube angles run from the outward radial towards +Y,
        // which makes the rings advance along +Y x radial: the quads face out of the tube.
        const double angle = 2 * kPi * r / ringDivisions;
        const Vec3 radial{std::cos(angle), 0, -std::sin(angle)};
        auto& ring = surface.rings.emplace_back();
        for (int s = 0; s < sideDivisions; ++s) {
            ring.push_back(
                onCircle(radial * majorRadius, radial, kY, minorRadius, 2 * kPi * s / sideDivisions));
        }
    }
    return MeshArrays(surface).build();
}

MeshTopology makeLimb(const LimbShape& shape) {
    constexpr const char* kMaker = "makeLimb";
    requirePositive(kMaker, "length", shape.length);
    requirePositive(kMaker, "radius", shape.radius);
    if (!(shape.taper >= 0 && shape.taper < 1)) throw HostError("makeLimb: taper must lie in [0, 1)");
    if (!std::isfinite(shape.bendAngle)) throw HostError("makeLimb: bendAngle must be finite");
    requireAtLeast(kMaker, "segments", shape.segments, 1);
    requireAtLeast(kMaker, "sides", shape.sides, 3);
    requireAtLeast(kMaker, "capRings", shape.capRings, 1);

    // The axis at fraction t of the length: an arc in the XY plane (a line without bend), with its
    // tangent and the in-plane normal; kZ completes the frame.
    struct Frame {
        Vec3 centre, tangent, normal;
    };
    const auto frameAt = [&](double t) {
        const double turn = shape.bendAngle * t;
        const Vec3 tangent{std::sin(turn), std::cos(turn), 0};
        const Vec3 normal{std::cos(turn), -std::sin(turn), 0};
        if (shape.bendAngle == 0) return Frame{kY * (shape.length * t), tangent, normal};
        const double bendRadius = shape.length / shape.bendAngle;
        return Frame{Vec3(bendRadius * (1 - std::cos(turn)), bendRadius * std::sin(turn), 0), tangent,
                     normal};
    };
    const auto radiusAt = [&](double t) { return shape.radius * (1 - shape.taper * t); };

    RingSurface surface;
    surface.sides = shape.sides;
    const auto addRing = [&](const Vec3& centre, const Frame& frame, double radius) {
        auto& ring = surface.rings.emplace_back();
        for (int s = 0; s < shape.sides; ++s) {
            ring.push_back(onCircle(centre, frame.normal, kZ, radius, 2 * kPi * s / shape.sides));
        }
    };
    // A cap ring at latitude `lat` (0 at the body's end, pi/2 at the pole) over the end at t, `side`
    // being -1 at the base and +1 at the tip.
    const auto addCapRing = [&](double t, double side, double lat) {
        const Frame frame = frameAt(t);
        addRing(frame.centre + frame.tangent * (side * radiusAt(t) * std::sin(lat)), frame,
                radiusAt(t) * std::cos(lat));
    };
    for (int k = shape.capRings; k >= 1; --k) addCapRing(0, -1, kPi / 2 * k / (shape.capRings + 1));
    for (int k = 0; k <= shape.segments; ++k) {
        const double t = double(k) / shape.segments;
        addRing(frameAt(t).centre, frameAt(t), radiusAt(t));
    }
    for (int k = 1; k <= shape.capRings; ++k) addCapRing(1, 1, kPi / 2 * k / (shape.capRings + 1));
    const Frame base = frameAt(0), tip = frameAt(1);
    surface.startPole = base.centre - base.tangent * radiusAt(0);
    surface.endPole = tip.centre + tip.tangent * radiusAt(1);
    return MeshArrays(surface).build();
}

}  // namespace mhost
