// The dense matrix: shapes, the results that shapes which don't fit have, and the rule of its determinant.
#include <new>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/Row.h"
#include "tests/unit/filter/MatrixContent.h"

namespace
{

using GPS::CMatrix;

const CMatrix EMPTY;
const CMatrix ANY = Matrix({{1, 2, 3}, {4, 5, 6}}); // 2 by 3
const CMatrix TALL = Matrix({{1, 2}, {3, 4}, {5, 6}});
const CMatrix SINGLE = Matrix({{7}});
const Rows NOTHING;
const Rows ONE{{1}};

TEST(Matrix, ConstructorsGiveTheirShapes)
{
    const double values[] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(RowsOf(CMatrix()), NOTHING);
    EXPECT_EQ(CMatrix(-1).Rows(), 0);
    EXPECT_EQ(RowsOf(CMatrix(3)), (Rows{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    EXPECT_EQ(RowsOf(CMatrix(values, 3)), (Rows{{1}, {2}, {3}}));
    EXPECT_EQ(RowsOf(CMatrix(values, 3, 2)), (Rows{{1, 2, 3}, {4, 5, 6}})); // columns first
    EXPECT_EQ(RowsOf(CMatrix(nullptr, 1, 2)), (Rows{{0}, {0}}));
}

TEST(Matrix, RowsOutsideAreNullAndColumnsComeOutBesideEachOther)
{
    EXPECT_EQ(RowsOf(ANY.Transpose()), (Rows{{1, 4}, {2, 5}, {3, 6}}));
    EXPECT_EQ(RowsOf(EMPTY.Transpose()), NOTHING);
    EXPECT_EQ(ANY[-1], nullptr);
    EXPECT_EQ(ANY[2], nullptr);
    EXPECT_EQ(EMPTY[0], nullptr);
    std::vector<double> out(7, -1.0);
    ANY.CopyOut(out.data());
    EXPECT_EQ(out, (std::vector<double>{1, 4, 2, 5, 3, 6, -1}));
    EMPTY.CopyOut(nullptr);
}

TEST(Matrix, AssignmentTakesOverShapeAndElements)
{
    const CMatrix shapes[] = {EMPTY, ANY, TALL, SINGLE, Matrix({{8, 9}})};
    for (const CMatrix& old : shapes) {
        for (const CMatrix& from : shapes) {
            CMatrix to = old;
            to = from;
            EXPECT_EQ(RowsOf(to), RowsOf(from));
            CMatrix given = old;
            to = std::move(given);
            EXPECT_EQ(RowsOf(to), RowsOf(old));
            EXPECT_EQ(RowsOf(given), NOTHING); // NOLINT(bugprone-use-after-move): empty, it is told
        }
    }
}

TEST(Matrix, Products)
{
    const struct {
        const char* rule;
        CMatrix left;
        CMatrix right;
        Rows result;
    } ROWS[] = {
        {"shapes fit", ANY, TALL, {{22, 28}, {49, 64}}},
        {"shapes fit the other way", TALL, ANY, {{9, 12, 15}, {19, 26, 33}, {29, 40, 51}}},
        {"column by row", Matrix({{1}, {2}}), Matrix({{3, 4}}), {{3, 4}, {6, 8}}},
        {"single scales from the left", SINGLE, TALL, {{7, 14}, {21, 28}, {35, 42}}},
        {"single scales from the right", TALL, SINGLE, {{7, 14}, {21, 28}, {35, 42}}},
        {"single scales a column it would fit", SINGLE, Matrix({{1, 2}}), {{7, 14}}},
        {"shapes that don't fit leave the left one", ANY, Matrix({{1, 2}, {3, 4}}), RowsOf(ANY)},
        {"single by the empty matrix", SINGLE, EMPTY, NOTHING},
        {"the empty matrix by any", EMPTY, ANY, NOTHING},
        {"no columns by no rows", CMatrix(nullptr, 0, 2), CMatrix(nullptr, 3, 0), {{0, 0, 0}, {0, 0, 0}}},
        {"terms are summed from 0 upward", Matrix({{1e16, -1e16, 1}}), Matrix({{1}, {1}, {1}}), {{1}}},
    };
    for (const auto& row : ROWS) {
        EXPECT_EQ(RowsOf(row.left * row.right), row.result) << row.rule;
    }
    EXPECT_EQ(RowsOf(ANY * 2.0), (Rows{{2, 4, 6}, {8, 10, 12}}));
    EXPECT_EQ(RowsOf(2.0 * ANY), (Rows{{2, 4, 6}, {8, 10, 12}}));
}

TEST(Matrix, SumAndDifference)
{
    const CMatrix other = Matrix({{10, 20, 30}, {40, 50, 60}});
    EXPECT_EQ(RowsOf(other + ANY), (Rows{{11, 22, 33}, {44, 55, 66}}));
    EXPECT_EQ(RowsOf(other - ANY), (Rows{{9, 18, 27}, {36, 45, 54}}));
    EXPECT_EQ(RowsOf(EMPTY + EMPTY), NOTHING);
    const CMatrix* const unfit[][2] = {{&ANY, &TALL}, {&ANY, &SINGLE}, {&SINGLE, &EMPTY}};
    for (const auto& [left, right] : unfit) {
        EXPECT_EQ(RowsOf(*left + *right), ONE);
        EXPECT_EQ(RowsOf(*left - *right), ONE);
    }
    EXPECT_EQ(RowsOf(CMatrix(nullptr, 4) + CMatrix(nullptr, 6)), ONE);
}

const CMatrix SYMMETRIC = Matrix({{2, 1, 0}, {1, 3, 1}, {0, 1, 4}});
const CMatrix INNOVATION = Matrix({{2, 0, 1, 0}, {0, 3, 0, 1}, {1, 0, 4, 0}, {0, 1, 0, 5}});

TEST(Matrix, DeterminantIsTheRuleOfSarrusAtEveryOrder)
{
    const support::Row<CMatrix, double> ROWS[] = {
        {"empty", EMPTY, 0.0},
        {"order 1", SINGLE, 7.0},
        {"order 2", Matrix({{1, 2}, {3, 4}}), -2.0},
        {"order 3", SYMMETRIC, 18.0},
        {"order 4 in the filter's pattern", INNOVATION, 98.0},
        {"order 4, full: not 72", Matrix({{1, 2, 3, 4}, {5, 6, 7, 8}, {2, 6, 4, 8}, {3, 1, 1, 2}}), -136.0},
        {"more rows than columns: the upper square", TALL, -2.0},
        {"more columns than rows", ANY, 0.0},
        // 1e16 + 3 rounds to 1e16 + 4; taking 1e16 off first would leave 3.
        {"all diagonals before the first anti-diagonal", Matrix({{1e16, 3, 1e16}, {0, 1, 1}, {1, 0, 1}}),
         4.0},
    };
    for (const auto& row : ROWS) {
        EXPECT_EQ(row.given.Determinant(), row.expected) << row.rule;
    }
}

TEST(Matrix, Cofactor)
{
    EXPECT_EQ(SYMMETRIC.Cofactor(0, 0), 11.0);
    EXPECT_EQ(SYMMETRIC.Cofactor(0, 1), -4.0);
    EXPECT_EQ(Matrix({{1, 2, 3}, {4, 5, 6}, {7, 8, 10}}).Cofactor(2, 1), 6.0); // -(1 * 6 - 3 * 4)
    EXPECT_EQ(SYMMETRIC.Cofactor(3, 0), 0.0);
    EXPECT_EQ(SYMMETRIC.Cofactor(0, 3), 0.0);
    EXPECT_EQ(TALL.Cofactor(0, 0), 0.0);
    EXPECT_EQ(ANY.Cofactor(0, 0), 0.0);
}

TEST(Matrix, InverseIsTheAdjugateTimesTheReciprocal)
{
    constexpr double BY_18 = 1.0 / 18.0;
    constexpr double BY_98 = 1.0 / 98.0;
    constexpr double BY_49 = 1.0 / 49.0; // times 49 it isn't 1, so a division for each element would show
    const std::pair<CMatrix, Rows> INVERSES[] = {
        {SINGLE, {{1.0 / 7.0}}},
        {Matrix({{1, 2}, {3, 4}}), {{-2, 1}, {1.5, -0.5}}},
        {Matrix({{1, 0}, {0, 49}}), {{49 * BY_49, 0}, {0, BY_49}}},
        {SYMMETRIC,
         {{11 * BY_18, -4 * BY_18, BY_18},
          {-4 * BY_18, 8 * BY_18, -2 * BY_18},
          {BY_18, -2 * BY_18, 5 * BY_18}}},
        {INNOVATION,
         {{56 * BY_98, 0, -14 * BY_98, 0},
          {0, 35 * BY_98, 0, -7 * BY_98},
          {-14 * BY_98, 0, 28 * BY_98, 0},
          {0, -7 * BY_98, 0, 21 * BY_98}}},
    };
    for (const auto& [matrix, inverse] : INVERSES) {
        CMatrix out = TALL;
        EXPECT_TRUE(matrix.Inverse(out));
        EXPECT_EQ(RowsOf(out), inverse);
        CMatrix itself = matrix;
        EXPECT_TRUE(itself.Inverse(itself));
        EXPECT_EQ(RowsOf(itself), inverse);
    }
}

TEST(Matrix, InverseThatFailsLeavesItsTarget)
{
    CMatrix out = TALL;
    CMatrix empty;
    for (const CMatrix& singular : {EMPTY, Matrix({{0}}), Matrix({{1, 2}, {2, 4}}), CMatrix(nullptr, 4, 4)}) {
        EXPECT_FALSE(singular.Inverse(out));
        EXPECT_FALSE(singular.Inverse(empty));
    }
    EXPECT_EQ(RowsOf(out), RowsOf(TALL));
    EXPECT_EQ(RowsOf(empty), NOTHING);
}

TEST(Matrix, CountBeyond32BitsOfBytesIsNoMemory)
{
    EXPECT_THROW(CMatrix(nullptr, 0x10000, 0x2000), std::bad_alloc);  // 0x20000000 elements
    EXPECT_THROW(CMatrix(nullptr, 0x10000, 0x10000), std::bad_alloc); // a count that is 0 in 32 bits
    EXPECT_THROW(CMatrix(0x7fffffff), std::bad_alloc);
    CMatrix target = TALL;
    const CMatrix column(nullptr, 30000);
    EXPECT_THROW(target = column * column.Transpose(), std::bad_alloc);
    EXPECT_EQ(RowsOf(target), RowsOf(TALL));
}

} // namespace
