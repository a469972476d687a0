#pragma once
// MMatrix: a 4x4 double matrix for row vectors, as in Maya: a point transforms as p * M, the translation
// sits in row 3, and A * B applies A first, then B.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

#define MMatrix_kTol 1.0e-10

class OPENMAYA_EXPORT MMatrix {
public:
    // The identity.
    MMatrix();
    MMatrix(const MMatrix& src);
    // From sixteen values, m[row][column].
    MMatrix(const double m[4][4]);
    MMatrix(const float m[4][4]);
    ~MMatrix();
    MMatrix& operator=(const MMatrix&);
    // Element (row, col). Indices past 3 throw std::out_of_range.
    double operator()(unsigned int row, unsigned int col) const;
    double& operator()(unsigned int row, unsigned int col);
    // The four values of a row. A row past 3 throws std::out_of_range.
    const double* operator[](unsigned int row) const;
    double* operator[](unsigned int row);
    // Copies the sixteen values out, dest[row][column].
    MStatus get(double dest[4][4]) const;
    MStatus get(float dest[4][4]) const;
    MMatrix transpose() const;
    MMatrix& setToIdentity();
    // Sets this matrix to left * right.
    MMatrix& setToProduct(const MMatrix& left, const MMatrix& right);
    // Element-wise sums and differences.
    MMatrix& operator+=(const MMatrix& right);
    MMatrix operator+(const MMatrix& right) const;
    MMatrix& operator-=(const MMatrix& right);
    MMatrix operator-(const MMatrix& right) const;
    // Matrix product: (*this) then `right` when applied to row vectors.
    MMatrix& operator*=(const MMatrix& right);
    MMatrix operator*(const MMatrix& right) const;
    // Every element scaled.
    MMatrix& operator*=(double);
    MMatrix operator*(double) const;
    // Exact element-wise comparison; see isEquivalent for a tolerance.
    bool operator==(const MMatrix& other) const;
    bool operator!=(const MMatrix& other) const;
    // The inverse by Gauss-Jordan elimination with partial pivoting. A singular matrix (see
    // isSingular) has none: the identity is returned instead.
    MMatrix inverse() const;
    // Determinant of the whole matrix, and of its upper-left 3x3 block.
    double det4x4() const;
    double det3x3() const;
    // True when no element differs from the other's by more than `tolerance`.
    bool isEquivalent(const MMatrix& other, double tolerance = MMatrix_kTol) const;
    // True when elimination meets a pivot below 1e-14 times the largest element: no usable inverse.
    bool isSingular() const;

    // Every element scaled, with the scalar on the left.
    friend OPENMAYA_EXPORT MMatrix operator*(double, const MMatrix& right);
    // Writes "[[a, b, c, d], [...], [...], [...]]", one bracket per row.
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MMatrix& m);

    double matrix[4][4];
    // The identity matrix.
    static const MMatrix identity;
};
