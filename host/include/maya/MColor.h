#pragma once
// MColor: an RGBA colour in floats. Arithmetic works on r, g and b; the alpha of the left operand
// passes through unchanged, as Maya documents for its products.

#include <maya/MTypes.h>

#include <iosfwd>

class OPENMAYA_EXPORT MColor {
public:
    // Opaque black (0, 0, 0, 1).
    MColor();
    MColor(const MColor& src) = default;
    MColor(float rr, float gg, float bb = 0.0, float aa = 1.0);
    // r, g, b from three values; alpha 1.
    MColor(const float d[3]);
    ~MColor() = default;
    MColor& operator=(const MColor& src) = default;
    // Component i: 0 r, 1 g, 2 b, 3 a; any other index reads r.
    float operator()(unsigned int i) const;
    float operator[](unsigned int i) const;
    float& operator()(unsigned int i);
    float& operator[](unsigned int i);
    // r, g, b scaled; alpha unchanged.
    MColor& operator*=(float scalar);
    MColor operator*(float scalar) const;
    MColor& operator/=(float scalar);
    MColor operator/(float scalar) const;
    // r, g, b multiplied channel by channel (a filter); alpha of the left colour.
    MColor& operator*=(const MColor& other);
    MColor operator*(const MColor& other) const;
    // r, g, b added or subtracted channel by channel; alpha of the left colour.
    MColor& operator+=(const MColor& other);
    MColor operator+(const MColor& other) const;
    MColor operator-(const MColor& other) const;
    // r, g, b negated; alpha unchanged.
    MColor operator-() const;
    // Exact comparison of all four components.
    bool operator==(const MColor& other) const;
    bool operator!=(const MColor& other) const;
    // Writes r, g, b to d; false for a null pointer.
    bool get(float d[3]) const;

    // r, g, b scaled, with the scalar on the left; alpha unchanged.
    friend OPENMAYA_EXPORT MColor operator*(float scalar, const MColor& other);
    // Writes "[r, g, b, a]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MColor& c);

    // (0, 0, 0, 1).
    static const MColor kOpaqueBlack;

    float r;
    float g;
    float b;
    float a;
};
