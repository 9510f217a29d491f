// MatrixContent.h: matrices written and compared as rows of numbers.
#pragma once

#include <initializer_list>
#include <ostream>
#include <vector>

#include "GpsLib/filter/CMatrix.h"

/// A matrix as its shape and its elements, row after row. Compared exactly.
struct MatrixContent {
    int rows;
    int cols;
    std::vector<double> elements;

    bool operator==(const MatrixContent& other) const
    {
        return rows == other.rows && cols == other.cols && elements == other.elements;
    }
};

inline void PrintTo(const MatrixContent& content, std::ostream* out)
{
    *out << content.rows << " by " << content.cols << ':';
    for (const double element : content.elements) {
        *out << ' ' << element;
    }
}

using Rows = std::initializer_list<std::initializer_list<double>>;

inline GPS::CMatrix Matrix(Rows rows)
{
    std::vector<double> elements;
    for (const auto& row : rows) {
        elements.insert(elements.end(), row);
    }
    const auto rowCount = static_cast<int>(rows.size());
    return {elements.data(), static_cast<int>(elements.size()) / rowCount, rowCount};
}

inline MatrixContent ContentOf(const GPS::CMatrix& matrix)
{
    MatrixContent content{matrix.Rows(), matrix.Transpose().Rows(), {}};
    for (int r = 0; r < content.rows; ++r) {
        content.elements.insert(content.elements.end(), matrix[r], matrix[r] + content.cols);
    }
    return content;
}
