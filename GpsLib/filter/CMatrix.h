// CMatrix.h: a small dense matrix of doubles.
#pragma once

#include <cstddef>
#include <cstdint>

namespace GPS
{

/// A matrix with storage of its own, row after row; a column vector has one column. Rows and columns count
/// from 0. A number of rows or columns below 0 counts as 0.
///
/// A shape that doesn't fit is no error: each operation has a result for it. The order of the floating-point
/// operations is fixed, so that results agree to the bit on every processor.
/// Throws: std::bad_alloc from whatever makes or copies elements, and nothing else.
/// Thread: one at a time.
class CMatrix
{
public:
    /// The empty matrix.
    CMatrix() noexcept;
    /// Identity of an order; an order below 1 gives the empty matrix.
    explicit CMatrix(int order);
    /// Column vector. values: n doubles that are copied, or null for zeros.
    CMatrix(const double* values, int n);
    /// Columns are named first. values: cols * rows doubles, row after row, that are copied, or null for
    /// zeros.
    CMatrix(const double* values, int cols, int rows);
    CMatrix(const CMatrix& other);
    /// Takes the elements over; `other` is empty then.
    CMatrix(CMatrix&& other) noexcept;
    ~CMatrix();

    /// Deep copy; takes over the shape. When it throws, the matrix is as it was.
    CMatrix& operator=(const CMatrix& other);
    /// Takes shape and elements over; `other` is empty then.
    CMatrix& operator=(CMatrix&& other) noexcept;

    /// Result: the first element of a row; null when there is no such row. Columns are not tested.
    double* operator[](int row) noexcept;
    const double* operator[](int row) const noexcept;

    int Rows() const noexcept { return rows; }

    /// Writes the elements column after column. out: cols * rows doubles.
    void CopyOut(double* out) const noexcept;

    CMatrix Transpose() const;

    /// The products along the wrapped diagonals less those along the wrapped anti-diagonals (rule of Sarrus,
    /// carried on to every order). That is the determinant up to order 3, and at order 4 for a matrix whose
    /// off-diagonal elements stand at (0,2), (2,0), (1,3) and (3,1) alone, as the filter's do; not in
    /// general.
    /// Result: 0.0 for an empty matrix and for one with fewer rows than columns.
    double Determinant() const noexcept;

    /// Result: 0.0 when the matrix isn't square or has no such element.
    double Cofactor(int row, int column) const noexcept;

    /// For square matrices; one with more rows than columns gives nothing of use.
    /// out: the inverse, by the adjugate.
    /// Result: false when Determinant gives 0.0; `out` is then as it was.
    bool Inverse(CMatrix& out) const;

    /// Sum and difference. A left one that is a temporary lends its elements to the result.
    /// Result: the 1 by 1 matrix holding 1.0 when the shapes differ.
    CMatrix operator+(const CMatrix& right) const&;
    CMatrix operator+(const CMatrix& right) &&;
    CMatrix operator-(const CMatrix& right) const&;
    CMatrix operator-(const CMatrix& right) &&;

    /// Product. A 1 by 1 matrix scales the other.
    /// Result: a copy of the left one when the shapes don't fit.
    CMatrix operator*(const CMatrix& right) const;
    CMatrix operator*(double factor) const;

private:
    /// A matrix whose elements nobody has written yet.
    struct Unwritten {
    };
    CMatrix(Unwritten, int cols, int rows);

    static double* Allocate(int cols, int rows);
    std::size_t Count() const noexcept;
    bool IsSingle() const noexcept { return cols == 1 && rows == 1; }
    double DeterminantWithout(int row, int column) const noexcept;
    template <class OPERATION>
    static CMatrix Combine(CMatrix left, const CMatrix& right, OPERATION operation);

    double* data; // owned; null in an empty matrix
    std::int32_t cols;
    std::int32_t rows;
};

CMatrix operator*(double factor, const CMatrix& matrix);

} // namespace GPS
