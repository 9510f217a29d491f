#include "GpsLib/filter/CMatrix.h"

#include <algorithm>
#include <cfloat>
#include <functional>
#include <new>
#include <utility>

// Excess precision would give the filter other bits; on 32-bit x86 build with -mfpmath=sse.
static_assert(FLT_EVAL_METHOD == 0);

namespace GPS
{

namespace
{

/// Writes WIDTH neighbours in a row of a product, from the column `at` on: side by side, so that the row of
/// the left one is read once for all of them. Each is summed from the row's first element to its last all the
/// same.
template <std::size_t WIDTH>
void SumProducts(const double* row, int count, const double* right, int cols, int at, double* out) noexcept
{
    double sums[WIDTH] = {};
    for (int k = 0; k < count; ++k) {
        for (std::size_t w = 0; w < WIDTH; ++w) {
            sums[w] = right[static_cast<std::size_t>(k * cols + at) + w] * row[k] + sums[w];
        }
    }
    std::copy_n(sums, WIDTH, out + at);
}

} // namespace

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

CMatrix::CMatrix(CMatrix&& other) noexcept
    : data(std::exchange(other.data, nullptr)),
      cols(std::exchange(other.cols, 0)),
      rows(std::exchange(other.rows, 0))
{
}

CMatrix::~CMatrix()
{
    delete[] data;
}

CMatrix& CMatrix::operator=(const CMatrix& other)
{
    if (this == &other) {
        return *this;
    }
    if (cols != other.cols || rows != other.rows) {
        return *this = CMatrix(other); // made before the old elements go, so that a failure is none
    }
    std::copy_n(other.data, Count(), data);
    return *this;
}

CMatrix& CMatrix::operator=(CMatrix&& other) noexcept
{
    CMatrix taken(std::move(other));
    std::swap(data, taken.data);
    std::swap(cols, taken.cols);
    std::swap(rows, taken.rows);
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

double CMatrix::Determinant() const noexcept
{
    return rows < cols ? 0.0 : DeterminantWithout(rows, cols);
}

/// Of what is left when a row and a column are left out; those beyond the last leave nothing out.
double CMatrix::DeterminantWithout(int row, int column) const noexcept
{
    const int n = column < cols ? cols - 1 : cols;
    const auto at = [=](int r, int c) {
        return data[(r < row ? r : r + 1) * cols + (c < column ? c : c + 1)];
    };
    if (n == 1) {
        return at(0, 0);
    }
    const auto diagonal = [=](int first, int step) {
        double product = 1.0;
        for (int i = 0, c = first; i < n; ++i, c += step) {
            c = c == n ? 0 : c < 0 ? n - 1 : c;
            product = at(i, c) * product;
        }
        return product;
    };
    // All diagonals come before the first anti-diagonal: the filter's bits rest on that order.
    const int diagonals = n == 2 ? 1 : n;
    double sum = 0.0;
    for (int k = 0; k < diagonals; ++k) {
        sum = diagonal(k, 1) + sum;
    }
    for (int k = 0; k < diagonals; ++k) {
        sum = sum - diagonal(n - 1 - k, -1);
    }
    return sum;
}

double CMatrix::Cofactor(int row, int column) const noexcept
{
    if (row < 0 || column < 0 || row >= cols || column >= rows || rows != cols) {
        return 0.0;
    }
    const double sign = (row + column) % 2 == 0 ? 1.0 : -1.0;
    return sign * DeterminantWithout(row, column);
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
    CMatrix inverse(Unwritten(), cols, rows);
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < cols; ++j) {
            inverse[i][j] = Cofactor(j, i) * scale;
        }
    }
    out = std::move(inverse);
    return true;
}

template <class OPERATION>
CMatrix CMatrix::Combine(CMatrix left, const CMatrix& right, OPERATION operation)
{
    if (left.rows != right.rows || left.cols != right.cols) {
        return CMatrix(1);
    }
    std::transform(left.data, left.data + left.Count(), right.data, left.data, operation);
    return left;
}

CMatrix CMatrix::operator+(const CMatrix& right) const&
{
    return Combine(*this, right, std::plus<>());
}

CMatrix CMatrix::operator+(const CMatrix& right) &&
{
    return Combine(std::move(*this), right, std::plus<>());
}

CMatrix CMatrix::operator-(const CMatrix& right) const&
{
    return Combine(*this, right, std::minus<>());
}

CMatrix CMatrix::operator-(const CMatrix& right) &&
{
    return Combine(std::move(*this), right, std::minus<>());
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
    for (int i = 0; i < rows; ++i) {
        const double* const row = (*this)[i];
        double* const to = result[i];
        int j = 0;
        for (; j + 1 < right.cols; j += 2) {
            SumProducts<2>(row, cols, right.data, right.cols, j, to);
        }
        if (j < right.cols) {
            SumProducts<1>(row, cols, right.data, right.cols, j, to);
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
