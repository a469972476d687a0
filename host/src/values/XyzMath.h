#pragma once
// Vector and point arithmetic written once for the double and float value classes (MVector and
// MFloatVector, MPoint and MFloatPoint): templates over any type with public x, y, z (and w) members.

#include <maya/MStatus.h>

#include <cmath>

namespace mhost::xyz {

// The scalar type of a value class: double for MVector, float for MFloatVector.
template <class V>
using Real = decltype(V::x);

// Component i of a vector; an index past z reads x, as Maya's accessors document.
template <class V>
auto& vectorComponent(V& v, unsigned int i) {
    switch (i) {
        case 1:
            return v.y;
        case 2:
            return v.z;
        default:
            return v.x;
    }
}

// Component i of a point: index 3 is w, other indices as for a vector.
template <class P>
auto& pointComponent(P& p, unsigned int i) {
    return i == 3 ? p.w : vectorComponent(p, i);
}

// Writes the first n components of v (through its operator[]) to dest, converted to dest's type;
// kFailure for a null dest.
template <class V, class S>
MStatus copyComponents(const V& v, S* dest, unsigned int n) {
    if (!dest) return MS::kFailure;
    for (unsigned int i = 0; i < n; ++i) dest[i] = static_cast<S>(v[i]);
    return MS::kSuccess;
}

// A value of class Out with the x, y, z of `in`, converted to Out's scalar type.
template <class Out, class In>
Out convert(const In& in) {
    return Out(static_cast<Real<Out>>(in.x), static_cast<Real<Out>>(in.y), static_cast<Real<Out>>(in.z));
}

template <class V>
V sum(const V& a, const V& b) {
    return V(a.x + b.x, a.y + b.y, a.z + b.z);
}

template <class V>
V difference(const V& a, const V& b) {
    return V(a.x - b.x, a.y - b.y, a.z - b.z);
}

template <class V>
V scaled(const V& v, Real<V> s) {
    return V(v.x * s, v.y * s, v.z * s);
}

template <class V>
Real<V> dot(const V& a, const V& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

template <class V>
V cross(const V& a, const V& b) {
    return V(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
}

template <class V>
Real<V> length(const V& v) {
    return std::sqrt(dot(v, v));
}

// The unit vector along v; the zero vector has no direction and is returned unchanged.
template <class V>
V unit(const V& v) {
    const Real<V> len = length(v);
    return len > 0 ? V(v.x / len, v.y / len, v.z / len) : v;
}

// The angle between a and b in [0, pi]. atan2 of |a x b| and a.b keeps full precision near 0 and pi,
// where acos of the cosine loses half the digits. A zero vector makes no angle: 0.
template <class V>
Real<V> angle(const V& a, const V& b) {
    if (length(a) == 0 || length(b) == 0) return 0;
    return std::atan2(length(cross(a, b)), dot(a, b));
}

template <class V>
bool parallel(const V& a, const V& b, Real<V> tolerance) {
    return std::abs(std::abs(dot(unit(a), unit(b))) - 1) <= tolerance;
}

// Euclidean distance between the x, y, z of two values.
template <class V>
Real<V> distance(const V& a, const V& b) {
    return length(difference(a, b));
}

template <class V>
bool equivalent(const V& a, const V& b, Real<V> tolerance) {
    return distance(a, b) <= tolerance;
}

// The point's cartesian form (x/w, y/w, z/w, 1). w = 1 needs no division, and w = 0 (a point at
// infinity) has no cartesian form: both come back unchanged.
template <class P>
P cartesian(const P& p) {
    if (p.w == 1 || p.w == 0) return p;
    return P(p.x / p.w, p.y / p.w, p.z / p.w, 1);
}

}  // namespace mhost::xyz
