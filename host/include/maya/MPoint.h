#pragma once
// MPoint: a homogeneous point (x, y, z, w) in double precision. Against an MMatrix it is a row vector:
// p * M, with the translation in the matrix's last row.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

#define MPoint_kTol 1.0e-10

class MFloatPoint;
class MFloatVector;
class MMatrix;
class MVector;

class OPENMAYA_EXPORT MPoint {
public:
    // The origin (0, 0, 0, 1).
    MPoint();
    MPoint(const MPoint& srcpt) = default;
    MPoint(const MFloatPoint& srcpt);
    // The vector's components with w = 1.
    MPoint(const MVector& src);
    MPoint(const MFloatVector& src);
    MPoint(double xx, double yy, double zz = 0.0, double ww = 1.0);
    // From four components x, y, z, w.
    MPoint(const double d[4]);
    MPoint(const float d[4]);
    ~MPoint() = default;
    // Writes x, y, z, w to dest; kFailure for a null pointer.
    MStatus get(double[4]) const;
    MStatus get(float[4]) const;
    // Component i: 0 x, 1 y, 2 z, 3 w; any other index reads x, as Maya documents.
    double operator[](unsigned int i) const;
    double operator()(unsigned int i) const;
    double& operator[](unsigned int i);
    double& operator()(unsigned int i);
    MPoint& operator=(const MPoint& src) = default;
    // The vector from `other` to this point, both taken in cartesian form.
    MVector operator-(const MPoint& other) const;
    // The cartesian form of the point moved by the vector; the result has w = 1.
    MPoint operator+(const MVector& other) const;
    MPoint operator-(const MVector& other) const;
    // Moves x, y, z by the vector in place, w unchanged.
    MPoint& operator+=(const MVector& vector);
    MPoint& operator-=(const MVector& vector);
    // Scales x, y and z; w is unchanged.
    MPoint operator*(const double scale) const;
    MPoint operator/(const double scale) const;
    MPoint& operator*=(const double scale);
    // The full homogeneous row-vector product (x, y, z, w) * M. w is not divided out: call
    // cartesianize after a projective matrix.
    MPoint operator*(const MMatrix&) const;
    MPoint& operator*=(const MMatrix&);
    // Exact comparison of all four components, so (0, 0, 0, 1) and (0, 0, 0, 2) differ.
    bool operator==(const MPoint& other) const;
    bool operator!=(const MPoint& other) const;
    // (x/w, y/w, z/w, 1). A point with w = 0 has no cartesian form and is left as it is.
    MPoint& cartesianize();
    // (x/w, y/w, z/w, w); w = 0 leaves the point as it is.
    MPoint& rationalize();
    // (x*w, y*w, z*w, w).
    MPoint& homogenize();
    // Euclidean distance between the cartesian forms of the two points.
    double distanceTo(const MPoint& other) const;
    // True when the cartesian forms are no farther apart than `tolerance`.
    bool isEquivalent(const MPoint& other, double tolerance = MPoint_kTol) const;

    // Scaling with the scalar on the left: x, y, z scaled, w unchanged.
    friend OPENMAYA_EXPORT MPoint operator*(double, const MPoint&);
    // Writes "[x, y, z, w]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MPoint& p);

    // (0, 0, 0, 1).
    static const MPoint origin;

    double x;
    double y;
    double z;
    double w;
};

#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MVector.h>
