#include "drawing/ProjectedLines.h"

#include <cmath>

namespace mhost {
namespace {

constexpr double kSampleSpacing = 2.0;  // pixels

// Collects the visible stretches of a line as separate polylines.
class Runs {
public:
    void add(const QPointF& point) { fCurrent << point; }
    void cut() {
        if (fCurrent.size() >= 2) fRuns.push_back(fCurrent);
        fCurrent.clear();
    }
    std::vector<QPolygonF> finish() {
        cut();
        return std::move(fRuns);
    }

private:
    QPolygonF fCurrent;
    std::vector<QPolygonF> fRuns;
};

void addSegment(MPoint a, MPoint b, const PictureSpace& space, const DepthBuffer* depth, Runs& runs) {
    const MPoint start = a, end = b;
    if (!space.clipSegment(a, b)) return runs.cut();
    if (!(a == start)) runs.cut();
    const ImagePoint from = space.fromWorld(a), to = space.fromWorld(b);
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const int steps = std::max(1, static_cast<int>(std::ceil(length / kSampleSpacing)));
    for (int i = 0; i <= steps; ++i) {
        const ImagePoint sample = space.fromWorld(a + (b - a) * (static_cast<double>(i) / steps));
        if (depth && !depth->isVisible(sample))
            runs.cut();
        else
            runs.add(sample.pixel());
    }
    if (!(b == end)) runs.cut();
}

}  // namespace

std::vector<QPolygonF> projectPolyline(const std::vector<MPoint>& points, bool closed,
                                       const PictureSpace& space, const DepthBuffer* depth) {
    Runs runs;
    for (size_t i = 0; i + 1 < points.size(); ++i) addSegment(points[i], points[i + 1], space, depth, runs);
    if (closed && points.size() > 2) addSegment(points.back(), points.front(), space, depth, runs);
    return runs.finish();
}

}  // namespace mhost
