#include "mesh/FanTriangulation.h"

#include "core/LargeArrays.h"

namespace mhost {

std::array<int, 3> FanTriangulation::corners(int triangle) const {
    const unsigned* ids = vertexIds.data() + 3 * static_cast<std::size_t>(triangle);
    return {static_cast<int>(ids[0]), static_cast<int>(ids[1]), static_cast<int>(ids[2])};
}

FanTriangulation fanTriangulate(const CompressedRows& faces) {
    FanTriangulation fan;
    reserveLarge(fan.faceFirstTriangle, faces.numRows() + 1);
    fan.faceFirstTriangle.push_back(0);
    for (int f = 0; f < faces.numRows(); ++f) {
        fan.faceFirstTriangle.push_back(fan.faceFirstTriangle.back() + faces.row(f).size() - 2);
    }
    reserveLarge(fan.owners, fan.faceFirstTriangle.back());
    reserveLarge(fan.vertexIds, 3 * static_cast<std::size_t>(fan.faceFirstTriangle.back()));
    for (int f = 0; f < faces.numRows(); ++f) {
        const IndexRange corners = faces.row(f);
        for (int k = 0; k + 2 < corners.size(); ++k) {
            fan.vertexIds.insert(fan.vertexIds.end(),
                                 {static_cast<unsigned>(corners[0]), static_cast<unsigned>(corners[k + 1]),
                                  static_cast<unsigned>(corners[k + 2])});
            fan.owners.push_back({f, k});
        }
    }
    return fan;
}

}  // namespace mhost
