#include "GpsLib/filter/CMatrix.h"

#include <algorithm>
#include <cfloat>
#include <new>

// Excess precision would give the filter other bits; on 32-bit x86 build with -mfpmath=sse.
static_assert(FLT_EVAL_METHOD == 0);

namespace GPS
{

CMatrix::CMatrix() noexcept : data(nullptr), cols(0), rows(0) {}

CMatrix::CMatrix(Unwritten /*tag*/, int cols, int rows)
    : data(Allocate(cols, rows)), cols(std::max(cols, 0)), rows(std::max(rows, 0))
{
}

CMatrix::CMatrix(int order) : CMatrix(nullptr, order, order)
{
    for (int i = 0; i < order; ++i) {
        (*this)[i][i] = 1.0;
    }
}

CMatrix::CMatrix(const double* values, int n) : CMatrix(values, 1, n) {}

CMatrix::CMatrix(const double* values, int cols, int rows) : CMatrix(Unwritten(), cols, rows)
{
    if (values != nullptr) {
        std::copy_n(values, Count(), data);
    } else {
        std::fill_n(data, Count(), 0.0);
    }
}

CMatrix::CMatrix(const CMatrix& other) : CMatrix(other.data, other.cols, other.rows) {}

CMatrix::~CMatrix()
{
    delete[] data;
}

CMatrix& CMatrix::operator=(const CMatrix& other)
{
    if (this != &other) {
        double* const copy =
            Allocate(other.cols, other.rows); // before the old elements go, so that a failure is none
        std::copy_n(other.data, other.Count(), copy);
        delete[] data;
        data = copy;
        cols = other.cols;
        rows = other.rows;
    }
    return *this;
}

double* CMatrix::Allocate(int cols, int rows)
{
    constexpr std::uint64_t COUNT_MAX = 0x1fffffff; // beyond it the bytes no longer fit 32 bits
    if (cols <= 0 || rows <= 0) {
        return nullptr;
    }
    const std::uint64_t count = static_cast<std::uint64_t>(cols) * static_cast<std::uint64_t>(rows);
    if (count > COUNT_MAX) {
        throw std::bad_alloc(); // as a request of 32 bits' largest size ends; never a short block
    }
    return new double[static_cast<std::size_t>(count)];
}

std::size_t CMatrix::Count() const noexcept
{
    return data == nullptr ? 0 : static_cast<std::size_t>(cols) * static_cast<std::size_t>(rows);
}

double* CMatrix::operator[](int row) noexcept
{
    return const_cast<double*>(static_cast<const CMatrix&>(*this)[row]);
}

const double* CMatrix::operator[](int row) const noexcept
{
    if (row < 0 || row >= rows || data == nullptr) {
        return nullptr;
    }
    return data + static_cast<std::ptrdiff_t>(row) * cols;
}

void CMatrix::CopyOut(double* out) const noexcept
{
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < cols; ++c) {
            out[static_cast<std::ptrdiff_t>(c) * rows + r] = (*this)[r][c];
        }
    }
}

CMatrix CMatrix::Transpose() const
{
    CMatrix result(Unwritten(), rows, cols);
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < cols; ++c) {
            result[c][r] = (*this)[r][c];
        }
    }
    return result;
}

// All diagonals are added before the first anti-diagonal is subtracted; the filter's bits rest on that order.
double CMatrix::Determinant() const noexcept
{
    const int n = cols;
    if (n < 1 || rows < n) {
        return 0.0;
    }
    if (n == 1) {
        return data[0];
    }
    const int diagonals = n == 2 ? 1 : n;
    double sum = 0.0;
    for (int k = 0; k < diagonals; ++k) {
        double product = 1.0;
        for (int i = 0, column = k; i < n; ++i, ++column) {
            if (column == n) {
                column = 0;
            }
            product = data[i * n + column] * product;
        }
        sum = product + sum;
    }
    for (int k = 0; k < diagonals; ++k) {
        double product = 1.0;
        for (int i = 0, column = n - 1 - k; i < n; ++i, --column) {
            if (column < 0) {
                column = n - 1;
            }
            product = data[i * n + column] * product;
        }
        sum = sum - product;
    }
    return sum;
}

double CMatrix::Cofactor(int row, int column) const
{
    if (row < 0 || column < 0 || row >= cols || column >= rows || rows != cols) {
        return 0.0;
    }
    CMatrix smaller(Unwritten(), cols - 1, rows - 1);
    double* next = smaller.data;
    for (int r = 0; r < rows; ++r) {
        if (r != row) {
            const double* const from = (*this)[r];
            next = std::copy(from, from + column, next);
            next = std::copy(from + column + 1, from + cols, next);
        }
    }
    const double sign = (row + column) % 2 == 0 ? 1.0 : -1.0;
    return sign * smaller.Determinant();
}

bool CMatrix::Inverse(CMatrix& out) const
{
    const double determinant = Determinant();
    if (determinant == 0.0) {
        return false;
    }
    const double scale = 1.0 / determinant;
    if (IsSingle()) {
        const double inverse = 1.0 * scale;
        out = CMatrix(&inverse, 1);
        return true;
    }
    CMatrix adjugate(Unwritten(), cols, rows);
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < cols; ++j) {
            adjugate[i][j] = Cofactor(j, i);
        }
    }
    out = adjugate * scale;
    return true;
}

template <class OPERATION>
CMatrix CMatrix::Combine(const CMatrix& right, OPERATION operation) const
{
    if (rows != right.rows || cols != right.cols) {
        return CMatrix(1);
    }
    CMatrix result(Unwritten(), cols, rows);
    std::transform(data, data + Count(), right.data, result.data, operation);
    return result;
}

CMatrix CMatrix::operator+(const CMatrix& right) const
{
    return Combine(right, [](double a, double b) { return a + b; });
}

CMatrix CMatrix::operator-(const CMatrix& right) const
{
    return Combine(right, [](double a, double b) { return a - b; });
}

CMatrix CMatrix::operator*(const CMatrix& right) const
{
    if (IsSingle()) {
        return right * data[0]; // two singles too: their product
    }
    if (right.IsSingle()) {
        return *this * right.data[0];
    }
    if (cols != right.rows) {
        return *this;
    }
    CMatrix result(Unwritten(), right.cols, rows);
    double* next = result.data;
    const double* row = data;
    for (int i = 0; i < rows; ++i, row += cols) {
        for (int j = 0; j < right.cols; ++j) {
            std::ptrdiff_t at = j; // no pointer: without rows, there is nothing to point into
            double sum = 0.0;
            for (int k = 0; k < cols; ++k, at += right.cols) {
                sum = right.data[at] * row[k] + sum;
            }
            *next = sum;
            ++next;
        }
    }
    return result;
}

CMatrix CMatrix::operator*(double factor) const
{
    CMatrix result(Unwritten(), cols, rows);
    std::transform(data, data + Count(), result.data, [factor](double element) { return element * factor; });
    return result;
}

CMatrix operator*(double factor, const CMatrix& matrix)
{
    return matrix * factor;
}

} // namespace GPS
