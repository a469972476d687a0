#pragma once
// MVector: a direction or offset in double precision. Against an MMatrix it is a row vector with w = 0,
// so rotation and scale apply and translation does not.

#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <mhost/VectorArithmetic.h>

#include <iosfwd>

#define MVector_kTol 1.0e-10

class MFloatPoint;
class MFloatVector;
class MMatrix;
class MPoint;

class OPENMAYA_EXPORT MVector {
public:
    // The axes rotateBy turns about; kWaxis names no axis and leaves a vector unchanged.
    enum Axis { kXaxis, kYaxis, kZaxis, kWaxis };

    // The zero vector.
    MVector();
    MVector(const MVector&) = default;
    MVector(const MFloatVector&);
    // The cartesian position of the point: x, y, z divided by w, unless w is 0 or 1.
    MVector(const MPoint&);
    MVector(const MFloatPoint&);
    MVector(double xx, double yy, double zz = 0.0);
    // From three components.
    MVector(const double d[3]);
    MVector(const float f[3]);
    ~MVector() = default;
    MVector& operator=(const MVector& src) = default;
    // Component i: 0 x, 1 y, 2 z; any other index reads x, as Maya documents.
    double operator()(unsigned int i) const;
    double operator[](unsigned int i) const;
    double& operator()(unsigned int i);
    double& operator[](unsigned int i);
    // Cross product, right-handed: xAxis ^ yAxis is zAxis.
    MVector operator^(const MVector& right) const;
    // Dot product.
    double operator*(const MVector& right) const;
    // Scaling of all three components. Division by zero follows IEEE rules (infinities, NaN).
    MVector& operator/=(double scalar);
    MVector operator/(double scalar) const;
    MVector& operator*=(double scalar);
    MVector operator*(double scalar) const;
    // Component-wise sums and differences.
    MVector operator+(const MVector& other) const;
    MVector& operator+=(const MVector& other);
    MVector operator-() const;
    MVector& operator-=(const MVector& other);
    MVector operator-(const MVector& other) const;
    // The vector times the matrix as a row vector (x, y, z, 0): only the upper 3x3 block applies.
    MVector operator*(const MMatrix&) const;
    MVector& operator*=(const MMatrix&);
    // Exact comparison of the three components; see isEquivalent for a tolerance.
    bool operator!=(const MVector& other) const;
    bool operator==(const MVector& other) const;
    // Rotated by the quaternion (x, y, z, w), w the scalar part. The quaternion is normalised first;
    // a zero quaternion leaves the vector unchanged.
    MVector rotateBy(double x, double y, double z, double w) const;
    // Rotated by `angle` radians about a coordinate axis, counter-clockwise looking down the axis.
    MVector rotateBy(MVector::Axis axis, const double angle) const;
    // Writes x, y, z to dest; kFailure for a null pointer.
    MStatus get(double[3]) const;
    double length() const;
    // The unit vector in the same direction; the zero vector comes back unchanged.
    MVector normal() const;
    // Makes the vector unit length in place; a zero vector stays zero. Always kSuccess.
    MStatus normalize();
    // The angle to `other` in radians, in [0, pi]; 0 when either vector is zero.
    double angle(const MVector& other) const;
    // True when the two vectors are no farther apart than `tolerance`.
    bool isEquivalent(const MVector& other, double tolerance = MVector_kTol) const;
    // True when the unit vectors' dot product is within `tolerance` of 1 or -1: the same or the
    // opposite direction. A zero vector is parallel to nothing.
    bool isParallel(const MVector& other, double tolerance = MVector_kTol) const;

    // Scaling with the scalar on the left.
    friend OPENMAYA_EXPORT MVector operator*(double, const MVector&);
    // Writes "[x, y, z]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MVector& v);

    // (0, 0, 0), (1, 1, 1) and the unit vectors along the positive and negative axes.
    static const MVector zero;
    static const MVector one;
    static const MVector xAxis;
    static const MVector yAxis;
    static const MVector zAxis;
    static const MVector xNegAxis;
    static const MVector yNegAxis;
    static const MVector zNegAxis;

    double x;
    double y;
    double z;
};

MHOST_INLINE_VECTOR_ARITHMETIC(MVector, double);

// As with Maya's headers, one of the point and vector headers brings in the other three.
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MPoint.h>
