#pragma once
// The members MPoint and MFloatPoint share. Maya gives the two classes no common base, so their
// definitions are stamped into each class's .cpp from this one macro; the arithmetic itself lives in
// the templates of XyzMath.h.

#include <maya/MFloatVector.h>
#include <maya/MVector.h>

#include <ostream>

#include "values/XyzMath.h"

// Point is the class being defined, OtherPoint its counterpart of the other precision, Vector and
// OtherVector the vector classes of the same and the other precision, Real the scalar. Expand it once,
// followed by a semicolon.
#define MHOST_DEFINE_POINT_MEMBERS(Point, OtherPoint, Vector, OtherVector, Real)                          \
    Point::Point() : x(0), y(0), z(0), w(1) {}                                                            \
    Point::Point(const OtherPoint& p) : x(Real(p.x)), y(Real(p.y)), z(Real(p.z)), w(Real(p.w)) {}         \
    Point::Point(const Vector& v) : Point(mhost::xyz::convert<Point>(v)) {}                               \
    Point::Point(const OtherVector& v) : Point(mhost::xyz::convert<Point>(v)) {}                          \
    Point::Point(Real xx, Real yy, Real zz, Real ww) : x(xx), y(yy), z(zz), w(ww) {}                      \
    Point::Point(const double d[4]) : x(Real(d[0])), y(Real(d[1])), z(Real(d[2])), w(Real(d[3])) {}       \
    Point::Point(const float f[4]) : x(f[0]), y(f[1]), z(f[2]), w(f[3]) {}                                \
    MStatus Point::get(double dest[4]) const { return mhost::xyz::copyComponents(*this, dest, 4); }       \
    MStatus Point::get(float dest[4]) const { return mhost::xyz::copyComponents(*this, dest, 4); }        \
    Real Point::operator()(unsigned int i) const { return mhost::xyz::pointComponent(*this, i); }         \
    Real Point::operator[](unsigned int i) const { return mhost::xyz::pointComponent(*this, i); }         \
    Real& Point::operator()(unsigned int i) { return mhost::xyz::pointComponent(*this, i); }              \
    Real& Point::operator[](unsigned int i) { return mhost::xyz::pointComponent(*this, i); }              \
    Vector Point::operator-(const Point& other) const { return Vector(*this) - Vector(other); }           \
    Point Point::operator+(const Vector& other) const { return Point(Vector(*this) + other); }            \
    Point Point::operator-(const Vector& other) const { return Point(Vector(*this) - other); }            \
    Point& Point::operator+=(const Vector& v) { return *this = Point(x + v.x, y + v.y, z + v.z, w); }     \
    Point& Point::operator-=(const Vector& v) { return *this += -v; }                                     \
    Point Point::operator*(const Real scale) const { return Point(x * scale, y * scale, z * scale, w); }  \
    Point Point::operator/(const Real scale) const { return Point(x / scale, y / scale, z / scale, w); }  \
    Point& Point::operator*=(const Real scale) { return *this = *this * scale; }                          \
    Point operator*(Real scale, const Point& p) { return p * scale; }                                     \
    bool Point::operator==(const Point& o) const { return x == o.x && y == o.y && z == o.z && w == o.w; } \
    bool Point::operator!=(const Point& other) const { return !(*this == other); }                        \
    Point& Point::cartesianize() { return *this = mhost::xyz::cartesian(*this); }                         \
    Point& Point::rationalize() { return *this = (w == 0 ? *this : Point(x / w, y / w, z / w, w)); }      \
    Point& Point::homogenize() { return *this = Point(x * w, y * w, z * w, w); }                          \
    Real Point::distanceTo(const Point& other) const {                                                    \
        return mhost::xyz::distance(mhost::xyz::cartesian(*this), mhost::xyz::cartesian(other));          \
    }                                                                                                     \
    bool Point::isEquivalent(const Point& other, Real tolerance) const {                                  \
        return distanceTo(other) <= tolerance;                                                            \
    }                                                                                                     \
    std::ostream& operator<<(std::ostream& os, const Point& p) {                                          \
        return os << "[" << p.x << ", " << p.y << ", " << p.z << ", " << p.w << "]";                      \
    }                                                                                                     \
    const Point Point::origin(0, 0, 0, 1);                                                                \
    static_assert(sizeof(Point) == 4 * sizeof(Real), "callers may read a " #Point                         \
                                                     " array as packed "                                  \
                                                     "scalars")
