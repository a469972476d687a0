#include <maya/MColor.h>

#include <ostream>

const MColor MColor::kOpaqueBlack(0, 0, 0, 1);

MColor::MColor() : r(0), g(0), b(0), a(1) {}
MColor::MColor(float rr, float gg, float bb, float aa) : r(rr), g(gg), b(bb), a(aa) {}
MColor::MColor(const float d[3]) : r(d[0]), g(d[1]), b(d[2]), a(1) {}

float MColor::operator()(unsigned int i) const { return (*this)[i]; }
// Reads go through the mutable accessor so that the index mapping is written once; nothing is written.
float MColor::operator[](unsigned int i) const { return const_cast<MColor&>(*this)[i]; }
float& MColor::operator()(unsigned int i) { return (*this)[i]; }
float& MColor::operator[](unsigned int i) {
    switch (i) {
        case 1:
            return g;
        case 2:
            return b;
        case 3:
            return a;
        default:
            return r;
    }
}

MColor& MColor::operator*=(float scalar) { return *this = *this * scalar; }
MColor MColor::operator*(float scalar) const { return MColor(r * scalar, g * scalar, b * scalar, a); }
MColor& MColor::operator/=(float scalar) { return *this = *this / scalar; }
MColor MColor::operator/(float scalar) const { return MColor(r / scalar, g / scalar, b / scalar, a); }
MColor& MColor::operator*=(const MColor& other) { return *this = *this * other; }
MColor MColor::operator*(const MColor& other) const {
    return MColor(r * other.r, g * other.g, b * other.b, a);
}
MColor& MColor::operator+=(const MColor& other) { return *this = *this + other; }
MColor MColor::operator+(const MColor& other) const {
    return MColor(r + other.r, g + other.g, b + other.b, a);
}
MColor MColor::operator-(const MColor& other) const {
    return MColor(r - other.r, g - other.g, b - other.b, a);
}
MColor MColor::operator-() const { return MColor(-r, -g, -b, a); }
MColor operator*(float scalar, const MColor& other) { return other * scalar; }

bool MColor::operator==(const MColor& o) const { return r == o.r && g == o.g && b == o.b && a == o.a; }
bool MColor::operator!=(const MColor& other) const { return !(*this == other); }

bool MColor::get(float d[3]) const {
    if (!d) return false;
    d[0] = r;
    d[1] = g;
    d[2] = b;
    return true;
}

std::ostream& operator<<(std::ostream& os, const MColor& c) {
    return os << "[" << c.r << ", " << c.g << ", " << c.b << ", " << c.a << "]";
}
