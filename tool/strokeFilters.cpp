#include "tool/strokeFilters.h"

#include <cstdint>

void lazySmoothTail(MPointArray& points, int window, int passes) {
    if (points.length() < 3) return;
    for (int pass = 0; pass < passes; ++pass) {
        const uint32_t count = points.length();
        // Unsigned on purpose: a window longer than the stroke wraps the start far past the end,
        // so the filter does nothing until the stroke has outgrown its window.
        for (uint32_t i = count - static_cast<uint32_t>(window); i < count - 2; ++i) {
            const MPoint& left = points[i];
            const MPoint& middle = points[i + 1];
            const MPoint& right = points[i + 2];
            points[i + 1] = MPoint(0.25 * left.x + 0.5 * middle.x + 0.25 * right.x,
                                   0.25 * left.y + 0.5 * middle.y + 0.25 * right.y,
                                   0.25 * left.z + 0.5 * middle.z + 0.25 * right.z,
                                   0.25 * left.w + 0.5 * middle.w + 0.25 * right.w);
        }
    }
}

MPointArray pointsAlongArc(const MPointArray& points, double length, int count, bool forward) {
    MPointArray walk;
    const int size = static_cast<int>(points.length());
    const double step = length / count;
    const int direction = forward ? 1 : -1;
    auto inRange = [size](int index) { return index >= 0 && index < size; };
    // A backward walk starts one past the end, and a forward walk may step there at its end: such
    // a step has no point to measure to and counts as length 0, which keeps the number of points.
    auto stepLength = [&](int from, int to) {
        return inRange(from) && inRange(to) ? points[from].distanceTo(points[to]) : 0.0;
    };

    int index = forward ? 0 : size;
    double run = 0.0;
    double covered = 0.0;
    int rounds = 0;
    while (forward ? index < size : index > 0) {
        if (run < step) {
            run += stepLength(index, index + direction);
            index += direction;
            continue;
        }
        if (inRange(index)) walk.append(points[index]);
        covered += step;
        run = 0.0;
        ++rounds;
        if (covered > length || rounds >= size) break;
    }
    return walk;
}

double polylineLength(const MPointArray& points) {
    double total = 0.0;
    for (unsigned i = 1; i < points.length(); ++i) total += points[i - 1].distanceTo(points[i]);
    return total;
}

MPointArray rotatedToStart(const MPointArray& points, unsigned start) {
    MPointArray rotated;
    const unsigned size = points.length();
    for (unsigned k = 0; k < size; ++k) rotated.append(points[(start + k) % size]);
    return rotated;
}
