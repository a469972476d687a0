#pragma once
// MFloatVector: a direction or offset in single precision, the float counterpart of MVector.

#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <mhost/VectorArithmetic.h>

#include <iosfwd>

#define MFloatVector_kTol 1.0e-5F

class MFloatPoint;
class MPoint;
class MVector;

class OPENMAYA_EXPORT MFloatVector {
public:
    // The zero vector.
    MFloatVector();
    MFloatVector(const MFloatVector&) = default;
    // Rounds the double components to float.
    MFloatVector(const MVector&);
    // The cartesian position of the point: x, y, z divided by w, unless w is 0 or 1.
    MFloatVector(const MFloatPoint&);
    MFloatVector(const MPoint&);
    MFloatVector(float xx, float yy, float zz = 0.0);
    // From three components.
    MFloatVector(const float f[3]);
    MFloatVector(const double d[3]);
    ~MFloatVector() = default;
    MFloatVector& operator=(const MFloatVector& src) = default;
    // Component i: 0 x, 1 y, 2 z; any other index reads x, as Maya documents.
    float operator()(unsigned int i) const;
    float operator[](unsigned int i) const;
    float& operator()(unsigned int i);
    float& operator[](unsigned int i);
    // Cross product, right-handed: xAxis ^ yAxis is zAxis.
    MFloatVector operator^(const MFloatVector& right) const;
    // Scaling of all three components. Division by zero follows IEEE rules (infinities, NaN).
    MFloatVector& operator/=(float scalar);
    MFloatVector operator/(float scalar) const;
    MFloatVector& operator*=(float scalar);
    MFloatVector operator*(float scalar) const;
    // Component-wise sums and differences.
    MFloatVector operator+(const MFloatVector& other) const;
    MFloatVector& operator+=(const MFloatVector& other);
    MFloatVector operator-() const;
    MFloatVector operator-(const MFloatVector& other) const;
    MFloatVector& operator-=(const MFloatVector& other);
    // Dot product.
    float operator*(const MFloatVector& other) const;
    // Exact comparison of the three components; see isEquivalent for a tolerance.
    bool operator!=(const MFloatVector& other) const;
    bool operator==(const MFloatVector& other) const;
    // Writes x, y, z to dest; kFailure for a null pointer.
    MStatus get(float[3]) const;
    float length() const;
    // The unit vector in the same direction; the zero vector comes back unchanged.
    MFloatVector normal() const;
    // Makes the vector unit length in place; a zero vector stays zero. Always kSuccess.
    MStatus normalize();
    // The angle to `other` in radians, in [0, pi]; 0 when either vector is zero.
    float angle(const MFloatVector& other) const;
    // True when the two vectors are no farther apart than `tolerance`.
    bool isEquivalent(const MFloatVector& other, float tolerance = MFloatVector_kTol) const;
    // True when the unit vectors' dot product is within `tolerance` of 1 or -1. A zero vector is
    // parallel to nothing.
    bool isParallel(const MFloatVector& other, float tolerance = MFloatVector_kTol) const;

    // Scaling with the scalar on the left.
    friend OPENMAYA_EXPORT MFloatVector operator*(float, const MFloatVector&);
    // Writes "[x, y, z]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MFloatVector& v);

    // (0, 0, 0), (1, 1, 1) and the unit vectors along the positive and negative axes.
    static const MFloatVector zero;
    static const MFloatVector one;
    static const MFloatVector xAxis;
    static const MFloatVector yAxis;
    static const MFloatVector zAxis;
    static const MFloatVector xNegAxis;
    static const MFloatVector yNegAxis;
    static const MFloatVector zNegAxis;

    float x;
    float y;
    float z;
};

MHOST_INLINE_VECTOR_ARITHMETIC(MFloatVector, float);

#include <maya/MFloatPoint.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>
