#pragma once
// MFloatPoint: a homogeneous point (x, y, z, w) in single precision, the float counterpart of MPoint.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

#define MFloatPoint_kTol 1.0e-5F

class MFloatVector;
class MPoint;
class MVector;

class OPENMAYA_EXPORT MFloatPoint {
public:
    // The origin (0, 0, 0, 1).
    MFloatPoint();
    MFloatPoint(const MFloatPoint& srcpt) = default;
    // Rounds the double components to float.
    MFloatPoint(const MPoint& srcpt);
    // The vector's components with w = 1.
    MFloatPoint(const MFloatVector& src);
    MFloatPoint(const MVector& src);
    MFloatPoint(float xx, float yy, float zz = 0.0, float ww = 1.0);
    // From four components x, y, z, w.
    MFloatPoint(const float f[4]);
    MFloatPoint(const double d[4]);
    ~MFloatPoint() = default;
    // Writes x, y, z, w to dest; kFailure for a null pointer.
    MStatus get(double dest[4]) const;
    MStatus get(float dest[4]) const;
    MFloatPoint& operator=(const MFloatPoint& src) = default;
    // Component i: 0 x, 1 y, 2 z, 3 w; any other index reads x, as Maya documents.
    float operator()(unsigned int i) const;
    float operator[](unsigned int i) const;
    float& operator()(unsigned int i);
    float& operator[](unsigned int i);
    // The vector from `other` to this point, both taken in cartesian form.
    MFloatVector operator-(const MFloatPoint& other) const;
    // The cartesian form of the point moved by the vector; the result has w = 1.
    MFloatPoint operator+(const MFloatVector& other) const;
    MFloatPoint operator-(const MFloatVector& other) const;
    // Moves x, y, z by the vector in place, w unchanged.
    MFloatPoint& operator+=(const MFloatVector& vector);
    MFloatPoint& operator-=(const MFloatVector& vector);
    // Scales x, y and z; w is unchanged.
    MFloatPoint operator*(const float scale) const;
    MFloatPoint operator/(const float scale) const;
    MFloatPoint& operator*=(const float scale);
    // Exact comparison of all four components.
    bool operator==(const MFloatPoint& other) const;
    bool operator!=(const MFloatPoint& other) const;
    // (x/w, y/w, z/w, 1). A point with w = 0 has no cartesian form and is left as it is.
    MFloatPoint& cartesianize();
    // (x/w, y/w, z/w, w); w = 0 leaves the point as it is.
    MFloatPoint& rationalize();
    // (x*w, y*w, z*w, w).
    MFloatPoint& homogenize();
    // Euclidean distance between the cartesian forms of the two points.
    float distanceTo(const MFloatPoint& other) const;
    // True when the cartesian forms are no farther apart than `tolerance`.
    bool isEquivalent(const MFloatPoint& other, float tolerance = MFloatPoint_kTol) const;

    // Scaling with the scalar on the left: x, y, z scaled, w unchanged.
    friend OPENMAYA_EXPORT MFloatPoint operator*(float, const MFloatPoint&);
    // Writes "[x, y, z, w]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MFloatPoint& p);

    // (0, 0, 0, 1).
    static const MFloatPoint origin;

    float x;
    float y;
    float z;
    float w;
};

#include <maya/MFloatVector.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>
