#include <maya/MMatrix.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

constexpr unsigned int kSize = 4;

// Below this fraction of the largest element a pivot counts as zero: the matrix is singular for all
// practical purposes and its "inverse" would be noise.
constexpr double kSingularPivotRatio = 1e-14;

unsigned int checkedIndex(unsigned int index) {
    if (index >= kSize) throw std::out_of_range("MMatrix: index " + std::to_string(index) + " out of range");
    return index;
}

template <class Op>
MMatrix elementWise(const MMatrix& a, const MMatrix& b, Op op) {
    MMatrix result;
    for (unsigned int r = 0; r < kSize; ++r)
        for (unsigned int c = 0; c < kSize; ++c) result.matrix[r][c] = op(a.matrix[r][c], b.matrix[r][c]);
    return result;
}

template <class Pred>
bool allElementPairs(const MMatrix& a, const MMatrix& b, Pred pred) {
    for (unsigned int r = 0; r < kSize; ++r)
        for (unsigned int c = 0; c < kSize; ++c)
            if (!pred(a.matrix[r][c], b.matrix[r][c])) return false;
    return true;
}

double largestMagnitude(const MMatrix& m) {
    double largest = 0;
    for (const auto& row : m.matrix)
        for (double value : row) largest = std::max(largest, std::abs(value));
    return largest;
}

// Gauss-Jordan elimination with partial pivoting, carrying the identity along into `inverse`.
// False, with `inverse` unspecified, when a pivot is negligible against the matrix's largest element.
bool invert(MMatrix m, MMatrix& inverse) {
    inverse.setToIdentity();
    const double threshold = kSingularPivotRatio * largestMagnitude(m);
    for (unsigned int col = 0; col < kSize; ++col) {
        unsigned int pivot = col;
        for (unsigned int r = col + 1; r < kSize; ++r)
            if (std::abs(m.matrix[r][col]) > std::abs(m.matrix[pivot][col])) pivot = r;
        if (!(std::abs(m.matrix[pivot][col]) > threshold)) return false;
        std::swap(m.matrix[pivot], m.matrix[col]);
        std::swap(inverse.matrix[pivot], inverse.matrix[col]);
        const double scale = 1 / m.matrix[col][col];
        for (unsigned int c = 0; c < kSize; ++c) {
            m.matrix[col][c] *= scale;
            inverse.matrix[col][c] *= scale;
        }
        for (unsigned int r = 0; r < kSize; ++r) {
            const double factor = m.matrix[r][col];
            if (r == col || factor == 0) continue;
            for (unsigned int c = 0; c < kSize; ++c) {
                m.matrix[r][c] -= factor * m.matrix[col][c];
                inverse.matrix[r][c] -= factor * inverse.matrix[col][c];
            }
        }
    }
    return true;
}

// Determinant of the n x n block whose rows and columns are listed, by expansion along its first row.
double minorDeterminant(const MMatrix& m, const unsigned int* rows, const unsigned int* cols,
                        unsigned int n) {
    if (n == 1) return m.matrix[rows[0]][cols[0]];
    double det = 0;
    unsigned int rest[kSize];
    for (unsigned int k = 0; k < n; ++k) {
        std::copy(cols, cols + k, rest);
        std::copy(cols + k + 1, cols + n, rest + k);
        const double term = m.matrix[rows[0]][cols[k]] * minorDeterminant(m, rows + 1, rest, n - 1);
        det += k % 2 ? -term : term;
    }
    return det;
}

double determinant(const MMatrix& m, unsigned int n) {
    const unsigned int all[kSize] = {0, 1, 2, 3};
    return minorDeterminant(m, all, all, n);
}

}  // namespace

const MMatrix MMatrix::identity;

MMatrix::MMatrix() { setToIdentity(); }
MMatrix::MMatrix(const MMatrix& src) = default;
MMatrix::MMatrix(const double m[4][4]) {
    for (unsigned int r = 0; r < kSize; ++r) std::copy(m[r], m[r] + kSize, matrix[r]);
}
MMatrix::MMatrix(const float m[4][4]) {
    for (unsigned int r = 0; r < kSize; ++r) std::copy(m[r], m[r] + kSize, matrix[r]);
}
MMatrix::~MMatrix() = default;
MMatrix& MMatrix::operator=(const MMatrix&) = default;

double MMatrix::operator()(unsigned int row, unsigned int col) const {
    return matrix[checkedIndex(row)][checkedIndex(col)];
}
double& MMatrix::operator()(unsigned int row, unsigned int col) {
    return matrix[checkedIndex(row)][checkedIndex(col)];
}
const double* MMatrix::operator[](unsigned int row) const { return matrix[checkedIndex(row)]; }
double* MMatrix::operator[](unsigned int row) { return matrix[checkedIndex(row)]; }

MStatus MMatrix::get(double dest[4][4]) const {
    if (!dest) return MS::kFailure;
    for (unsigned int r = 0; r < kSize; ++r) std::copy(matrix[r], matrix[r] + kSize, dest[r]);
    return MS::kSuccess;
}

MStatus MMatrix::get(float dest[4][4]) const {
    if (!dest) return MS::kFailure;
    for (unsigned int r = 0; r < kSize; ++r)
        for (unsigned int c = 0; c < kSize; ++c) dest[r][c] = static_cast<float>(matrix[r][c]);
    return MS::kSuccess;
}

MMatrix MMatrix::transpose() const {
    MMatrix result;
    for (unsigned int r = 0; r < kSize; ++r)
        for (unsigned int c = 0; c < kSize; ++c) result.matrix[c][r] = matrix[r][c];
    return result;
}

MMatrix& MMatrix::setToIdentity() {
    for (unsigned int r = 0; r < kSize; ++r)
        for (unsigned int c = 0; c < kSize; ++c) matrix[r][c] = r == c ? 1.0 : 0.0;
    return *this;
}

MMatrix& MMatrix::setToProduct(const MMatrix& left, const MMatrix& right) {
    MMatrix product;
    for (unsigned int r = 0; r < kSize; ++r)
        for (unsigned int c = 0; c < kSize; ++c) {
            double sum = 0;
            for (unsigned int k = 0; k < kSize; ++k) sum += left.matrix[r][k] * right.matrix[k][c];
            product.matrix[r][c] = sum;
        }
    return *this = product;
}

MMatrix& MMatrix::operator+=(const MMatrix& right) { return *this = *this + right; }
MMatrix MMatrix::operator+(const MMatrix& right) const {
    return elementWise(*this, right, [](double a, double b) { return a + b; });
}
MMatrix& MMatrix::operator-=(const MMatrix& right) { return *this = *this - right; }
MMatrix MMatrix::operator-(const MMatrix& right) const {
    return elementWise(*this, right, [](double a, double b) { return a - b; });
}
MMatrix& MMatrix::operator*=(const MMatrix& right) { return setToProduct(*this, right); }
MMatrix MMatrix::operator*(const MMatrix& right) const { return MMatrix().setToProduct(*this, right); }
MMatrix& MMatrix::operator*=(double scale) { return *this = *this * scale; }
MMatrix MMatrix::operator*(double scale) const {
    MMatrix result;
    for (unsigned int r = 0; r < kSize; ++r)
        for (unsigned int c = 0; c < kSize; ++c) result.matrix[r][c] = matrix[r][c] * scale;
    return result;
}
MMatrix operator*(double scale, const MMatrix& right) { return right * scale; }

bool MMatrix::operator==(const MMatrix& other) const {
    return allElementPairs(*this, other, [](double a, double b) { return a == b; });
}
bool MMatrix::operator!=(const MMatrix& other) const { return !(*this == other); }

MMatrix MMatrix::inverse() const {
    MMatrix result;
    return invert(*this, result) ? result : MMatrix();
}

double MMatrix::det4x4() const { return determinant(*this, 4); }
double MMatrix::det3x3() const { return determinant(*this, 3); }

bool MMatrix::isEquivalent(const MMatrix& other, double tolerance) const {
    return allElementPairs(*this, other,
                           [tolerance](double a, double b) { return std::abs(a - b) <= tolerance; });
}

bool MMatrix::isSingular() const {
    MMatrix unused;
    return !invert(*this, unused);
}

std::ostream& operator<<(std::ostream& os, const MMatrix& m) {
    os << "[";
    for (unsigned int r = 0; r < kSize; ++r) {
        os << (r ? ", [" : "[");
        for (unsigned int c = 0; c < kSize; ++c) os << (c ? ", " : "") << m.matrix[r][c];
        os << "]";
    }
    return os << "]";
}
