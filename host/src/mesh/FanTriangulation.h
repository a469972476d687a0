#pragma once
// Polygons split into triangle fans from their first corner: triangle k of a polygon has its corners
// 0, k + 1 and k + 2, so an n-gon gives n - 2 triangles numbered 0 .. n - 3 within it. The numbering is
// the one ray hits report as (face id, triangle id). Exact for convex polygons; a concave polygon's fan
// may cover area outside it.

#include <array>
#include <vector>

#include "mesh/IndexRange.h"

namespace mhost {

struct FanTriangulation {
    // The polygon a triangle comes from, side by side with its index there so that one memory read
    // answers both for a ray hit.
    struct Owner {
        int face;
        int indexInFace;
    };

    // Three vertex ids per triangle, triangles of polygon 0 first.
    std::vector<unsigned> vertexIds;
    std::vector<Owner> owners;
    // First triangle of each polygon, plus the total at the end.
    std::vector<int> faceFirstTriangle;

    int numTriangles() const { return static_cast<int>(owners.size()); }
    std::array<int, 3> corners(int triangle) const;
};

// O(face-vertices).
FanTriangulation fanTriangulate(const CompressedRows& faces);

}  // namespace mhost
