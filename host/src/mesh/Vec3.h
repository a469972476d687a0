#pragma once
// The mesh kernel's own 3-component vector, kept apart from the public Maya value classes. Points are
// stored in single precision as Maya stores them (Vec3f); geometry is computed in double (Vec3).

#include <cmath>

namespace mhost {

template <class T>
struct Vec3T {
    T x = 0, y = 0, z = 0;

    constexpr Vec3T() = default;
    constexpr Vec3T(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}
    // Converts between precisions; narrowing to float rounds to nearest.
    template <class U>
    constexpr explicit Vec3T(const Vec3T<U>& other)
        : x(static_cast<T>(other.x)), y(static_cast<T>(other.y)), z(static_cast<T>(other.z)) {}

    Vec3T& operator+=(const Vec3T& o) {
        x += o.x;
        y += o.y;
        z += o.z;
        return *this;
    }
    Vec3T& operator-=(const Vec3T& o) {
        x -= o.x;
        y -= o.y;
        z -= o.z;
        return *this;
    }
    Vec3T& operator*=(T s) {
        x *= s;
        y *= s;
        z *= s;
        return *this;
    }
    friend Vec3T operator+(Vec3T a, const Vec3T& b) { return a += b; }
    friend Vec3T operator-(Vec3T a, const Vec3T& b) { return a -= b; }
    friend Vec3T operator*(Vec3T a, T s) { return a *= s; }
    friend Vec3T operator*(T s, Vec3T a) { return a *= s; }
    friend Vec3T operator-(const Vec3T& a) { return {-a.x, -a.y, -a.z}; }
    friend bool operator==(const Vec3T& a, const Vec3T& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }
    friend bool operator!=(const Vec3T& a, const Vec3T& b) { return !(a == b); }
};

using Vec3 = Vec3T<double>;
using Vec3f = Vec3T<float>;

template <class T>
T dot(const Vec3T<T>& a, const Vec3T<T>& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

template <class T>
Vec3T<T> cross(const Vec3T<T>& a, const Vec3T<T>& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

template <class T>
T lengthSquared(const Vec3T<T>& a) {
    return dot(a, a);
}

template <class T>
T length(const Vec3T<T>& a) {
    return std::sqrt(lengthSquared(a));
}

// The unit vector along `a`, or the zero vector when `a` has no length (so degenerate input never
// produces NaN).
template <class T>
Vec3T<T> normalized(const Vec3T<T>& a) {
    const T len = length(a);
    return len > 0 ? a * (T(1) / len) : Vec3T<T>();
}

template <class T>
bool isFinite(const Vec3T<T>& a) {
    return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z);
}

}  // namespace mhost
