// MatrixContent.h: matrices written and compared as rows of numbers.
#pragma once

#include <vector>

#include "GpsLib/filter/CMatrix.h"

/// Row after row, compared exactly.
using Rows = std::vector<std::vector<double>>;

inline GPS::CMatrix Matrix(const Rows& rows)
{
    std::vector<double> elements;
    for (const std::vector<double>& row : rows) {
        elements.insert(elements.end(), row.begin(), row.end());
    }
    return {elements.data(), static_cast<int>(rows.front().size()), static_cast<int>(rows.size())};
}

inline Rows RowsOf(const GPS::CMatrix& matrix)
{
    Rows rows;
    for (int r = 0; r < matrix.Rows(); ++r) {
        rows.emplace_back(matrix[r], matrix[r] + matrix.Transpose().Rows());
    }
    return rows;
}
