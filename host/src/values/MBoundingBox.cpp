#include <maya/MBoundingBox.h>
#include <maya/MMatrix.h>

#include <algorithm>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

MPoint componentMin(const MPoint& a, const MPoint& b) {
    return MPoint(std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z));
}

MPoint componentMax(const MPoint& a, const MPoint& b) {
    return MPoint(std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z));
}

// Corner `index` (0 to 7) of the box from lo to hi: bits 0, 1 and 2 pick hi's x, y and z.
MPoint boxCorner(const MPoint& lo, const MPoint& hi, unsigned int index) {
    return MPoint((index & 1 ? hi : lo).x, (index & 2 ? hi : lo).y, (index & 4 ? hi : lo).z);
}

}  // namespace

MBoundingBox::MBoundingBox() { clear(); }
MBoundingBox::MBoundingBox(const MBoundingBox& src) = default;
MBoundingBox::MBoundingBox(const MPoint& corner1, const MPoint& corner2) : MBoundingBox() {
    expand(corner1);
    expand(corner2);
}
MBoundingBox::~MBoundingBox() = default;
MBoundingBox& MBoundingBox::operator=(const MBoundingBox& other) = default;

void MBoundingBox::clear() {
    fMin = MPoint(kInfinity, kInfinity, kInfinity);
    fMax = MPoint(-kInfinity, -kInfinity, -kInfinity);
}

bool MBoundingBox::isEmpty() const { return fMin.x > fMax.x; }

void MBoundingBox::expand(const MPoint& point) {
    const MPoint p = MPoint(point).cartesianize();
    fMin = componentMin(fMin, p);
    fMax = componentMax(fMax, p);
}

void MBoundingBox::expand(const MBoundingBox& box) {
    if (box.isEmpty()) return;
    expand(box.fMin);
    expand(box.fMax);
}

void MBoundingBox::transformUsing(const MMatrix& matrix) {
    if (isEmpty()) return;
    const MPoint lo = fMin, hi = fMax;
    clear();
    for (unsigned int corner = 0; corner < 8; ++corner) expand(boxCorner(lo, hi, corner) * matrix);
}

bool MBoundingBox::contains(const MPoint& point) const {
    if (isEmpty()) return false;
    const MPoint p = MPoint(point).cartesianize();
    // Written so that a NaN coordinate counts as outside.
    for (unsigned int axis = 0; axis < 3; ++axis)
        if (!(fMin[axis] <= p[axis] && p[axis] <= fMax[axis])) return false;
    return true;
}

bool MBoundingBox::intersects(const MBoundingBox& box, double tol) const {
    if (isEmpty() || box.isEmpty()) return false;
    for (unsigned int axis = 0; axis < 3; ++axis)
        if (fMin[axis] > box.fMax[axis] + tol || box.fMin[axis] > fMax[axis] + tol) return false;
    return true;
}

double MBoundingBox::width() const { return isEmpty() ? 0 : fMax.x - fMin.x; }
double MBoundingBox::height() const { return isEmpty() ? 0 : fMax.y - fMin.y; }
double MBoundingBox::depth() const { return isEmpty() ? 0 : fMax.z - fMin.z; }

MPoint MBoundingBox::center() const {
    return isEmpty() ? MPoint::origin
                     : MPoint((fMin.x + fMax.x) / 2, (fMin.y + fMax.y) / 2, (fMin.z + fMax.z) / 2);
}

MPoint MBoundingBox::min() const { return isEmpty() ? MPoint::origin : fMin; }
MPoint MBoundingBox::max() const { return isEmpty() ? MPoint::origin : fMax; }
