// Resampling of a polyline to a fixed number of points evenly spaced by arc length.
//
// The routine is a chain of whole-array steps over double arrays: parameters of the output
// points, normalised segment lengths, their running sum (the input points' parameters), a
// histogram of input parameters per output interval, and from it the segment that holds each
// output parameter. Each output point is then interpolated linearly on its segment.

#include <cmath>
#include <vector>

#include "geometry/functions.h"

namespace {

// Output parameters k * step for k = 0 .. count - 1, step = 1 / (count - 1). The last one is a
// product and can miss 1.0 by a rounding error; segmentIndexList copes with that.
std::vector<double> outputParameters(int count) {
    const double step = (1.0 - 0.0) / (count - 1);
    std::vector<double> u;
    for (int k = 0; k < count; ++k) u.push_back(k * step + 0.0);
    return u;
}

// Segment lengths divided by the total length. A polyline of zero length divides by zero; the
// resulting non-finite values are left to flow through, as they always have.
std::vector<double> normalisedSegmentLengths(const MPointArray& points) {
    std::vector<double> lengths;
    double total = 0.0;
    for (unsigned int i = 0; i + 1 < points.length(); ++i) {
        const double dx = points[i + 1].x - points[i].x;
        const double dy = points[i + 1].y - points[i].y;
        const double dz = points[i + 1].z - points[i].z;
        lengths.push_back(std::sqrt(dx * dx + dy * dy + dz * dz));
        total += lengths.back();
    }
    for (double& length : lengths) length /= total;
    return lengths;
}

// Arc-length parameter of every input point: 0.0, then the running sum of the segment lengths.
std::vector<double> inputParameters(const std::vector<double>& segmentLengths) {
    std::vector<double> c(1, 0.0);
    for (double length : segmentLengths) c.push_back(c.back() + length);
    return c;
}

// For each output interval [u[b], u[b+1]) the number of input parameters inside it; the last
// interval also takes its upper end. A full scan per interval: the cost is inputs * outputs.
std::vector<double> histogram(const std::vector<double>& c, const std::vector<double>& u) {
    std::vector<double> h;
    const std::size_t bins = u.size() < 2 ? 0 : u.size() - 1;
    for (std::size_t b = 0; b < bins; ++b) {
        const bool last = b + 1 == bins;
        double inside = 0.0;
        for (double value : c) {
            if (u[b] <= value && (value < u[b + 1] || (last && value <= u[b + 1]))) inside += 1.0;
        }
        h.push_back(inside);
    }
    return h;
}

// For each output parameter, the index of the input segment holding it: the count of input
// parameters below it, minus one, with the first output forced onto segment 0 and the last onto
// segment n - 2. Kept as doubles and truncated where used.
std::vector<double> segmentIndexList(const std::vector<double>& h, const std::vector<double>& u, int n) {
    std::vector<double> s;
    for (std::size_t k = 0; k < u.size(); ++k) s.push_back(k == 0 ? 0.0 : s[k - 1] + h[k - 1]);
    for (std::size_t k = 0; k < s.size(); ++k) {
        if (s[k] <= 0.0)
            s[k] = 1.0;
        else if (u[k] <= 0.0)
            s[k] = 1.0;
        else if (s[k] >= n || u[k] >= 1.0)
            s[k] = n - 1;
    }
    for (double& index : s) index -= 1.0;
    return s;
}

}  // namespace

MPointArray resamplePolyline(const MPointArray& points, int count) {
    const int n = static_cast<int>(points.length());
    if (n < 2) return points;

    const std::vector<double> u = outputParameters(count);
    const std::vector<double> l = normalisedSegmentLengths(points);
    const std::vector<double> c = inputParameters(l);
    const std::vector<double> s = segmentIndexList(histogram(c, u), u, n);

    MPointArray result;
    for (std::size_t k = 0; k < u.size(); ++k) {
        const unsigned int j = static_cast<unsigned int>(s[k]);
        // A zero-length first or last segment makes this 0 / 0 for the end point; it is not
        // guarded. Inner zero-length segments are never chosen.
        const double t = (u[k] - c[j]) / l[j];
        const MPoint& from = points[j];
        const MPoint& to = points[j + 1];
        result.append(MPoint(from.x + (to.x - from.x) * t, from.y + (to.y - from.y) * t,
                             from.z + (to.z - from.z) * t, from.w));
    }
    return result;
}

MPointArray resampleStroke(const MPointArray& points, int count) {
    return resamplePolyline(points, count < 2 ? 2 : count);
}
