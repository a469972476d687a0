#pragma once
// The members MVector and MFloatVector share. Maya gives the two classes no common base, so their
// definitions are stamped into each class's .cpp from this one macro; the arithmetic itself lives in
// the templates of XyzMath.h, where a debugger can step through it. The basic arithmetic is inline in
// the public headers instead (mhost/VectorArithmetic.h), as in Maya's.

#include <maya/MFloatPoint.h>
#include <maya/MPoint.h>

#include <ostream>

#include "values/XyzMath.h"

// Vector is the class being defined, OtherVector its counterpart of the other precision, Real its scalar.
// Expand it once, followed by a semicolon.
#define MHOST_DEFINE_VECTOR_MEMBERS(Vector, OtherVector, Real)                                              \
    Vector::Vector(const OtherVector& v) : Vector(mhost::xyz::convert<Vector>(v)) {}                        \
    Vector::Vector(const MPoint& p) : Vector(mhost::xyz::convert<Vector>(mhost::xyz::cartesian(p))) {}      \
    Vector::Vector(const MFloatPoint& p) : Vector(mhost::xyz::convert<Vector>(mhost::xyz::cartesian(p))) {} \
    Vector::Vector(const double d[3]) : x(Real(d[0])), y(Real(d[1])), z(Real(d[2])) {}                      \
    Vector::Vector(const float f[3]) : x(f[0]), y(f[1]), z(f[2]) {}                                         \
    Real Vector::operator()(unsigned int i) const { return mhost::xyz::vectorComponent(*this, i); }         \
    Real Vector::operator[](unsigned int i) const { return mhost::xyz::vectorComponent(*this, i); }         \
    Real& Vector::operator()(unsigned int i) { return mhost::xyz::vectorComponent(*this, i); }              \
    Real& Vector::operator[](unsigned int i) { return mhost::xyz::vectorComponent(*this, i); }              \
    bool Vector::operator==(const Vector& other) const {                                                    \
        return x == other.x && y == other.y && z == other.z;                                                \
    }                                                                                                       \
    bool Vector::operator!=(const Vector& other) const { return !(*this == other); }                        \
    MStatus Vector::get(Real dest[3]) const { return mhost::xyz::copyComponents(*this, dest, 3); }          \
    Real Vector::length() const { return mhost::xyz::length(*this); }                                       \
    Vector Vector::normal() const { return mhost::xyz::unit(*this); }                                       \
    MStatus Vector::normalize() {                                                                           \
        *this = normal();                                                                                   \
        return MS::kSuccess;                                                                                \
    }                                                                                                       \
    Real Vector::angle(const Vector& other) const { return mhost::xyz::angle(*this, other); }               \
    bool Vector::isEquivalent(const Vector& other, Real tolerance) const {                                  \
        return mhost::xyz::equivalent(*this, other, tolerance);                                             \
    }                                                                                                       \
    bool Vector::isParallel(const Vector& other, Real tolerance) const {                                    \
        return mhost::xyz::parallel(*this, other, tolerance);                                               \
    }                                                                                                       \
    std::ostream& operator<<(std::ostream& os, const Vector& v) {                                           \
        return os << "[" << v.x << ", " << v.y << ", " << v.z << "]";                                       \
    }                                                                                                       \
    const Vector Vector::zero(0, 0, 0);                                                                     \
    const Vector Vector::one(1, 1, 1);                                                                      \
    const Vector Vector::xAxis(1, 0, 0);                                                                    \
    const Vector Vector::yAxis(0, 1, 0);                                                                    \
    const Vector Vector::zAxis(0, 0, 1);                                                                    \
    const Vector Vector::xNegAxis(-1, 0, 0);                                                                \
    const Vector Vector::yNegAxis(0, -1, 0);                                                                \
    const Vector Vector::zNegAxis(0, 0, -1)
