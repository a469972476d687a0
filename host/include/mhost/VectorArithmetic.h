#pragma once
// The arithmetic of MVector and MFloatVector, defined inline in their headers as Maya defines it in
// its own: vector math in a plug-in's inner loops then costs no call into the library. Vector is the
// class, Real its scalar. Expand it once, after the class, followed by a semicolon.

#define MHOST_INLINE_VECTOR_ARITHMETIC(Vector, Real)                                                     \
    inline Vector::Vector() : x(0), y(0), z(0) {}                                                        \
    inline Vector::Vector(Real xx, Real yy, Real zz) : x(xx), y(yy), z(zz) {}                            \
    inline Vector Vector::operator^(const Vector& r) const {                                             \
        return Vector(y * r.z - z * r.y, z * r.x - x * r.z, x * r.y - y * r.x);                          \
    }                                                                                                    \
    inline Real Vector::operator*(const Vector& r) const { return x * r.x + y * r.y + z * r.z; }         \
    inline Vector Vector::operator/(Real scalar) const {                                                 \
        return Vector(x / scalar, y / scalar, z / scalar);                                               \
    }                                                                                                    \
    inline Vector& Vector::operator/=(Real scalar) { return *this = *this / scalar; }                    \
    inline Vector Vector::operator*(Real scalar) const {                                                 \
        return Vector(x * scalar, y * scalar, z * scalar);                                               \
    }                                                                                                    \
    inline Vector& Vector::operator*=(Real scalar) { return *this = *this * scalar; }                    \
    inline Vector operator*(Real scalar, const Vector& v) { return v * scalar; }                         \
    inline Vector Vector::operator+(const Vector& o) const { return Vector(x + o.x, y + o.y, z + o.z); } \
    inline Vector& Vector::operator+=(const Vector& o) { return *this = *this + o; }                     \
    inline Vector Vector::operator-() const { return Vector(-x, -y, -z); }                               \
    inline Vector Vector::operator-(const Vector& o) const { return Vector(x - o.x, y - o.y, z - o.z); } \
    inline Vector& Vector::operator-=(const Vector& o) { return *this = *this - o; }                     \
    static_assert(sizeof(Vector) == 3 * sizeof(Real),                                                    \
                  "callers may read a " #Vector " array as packed scalars")
