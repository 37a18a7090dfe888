#include "core/evaluation_arrays.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

void Put(DataMatrix& cells, std::int32_t row, const char* x, const char* y, const char* exclude = "") {
    cells.Set(ColumnX, row, std::string(x));
    cells.Set(ColumnY, row, std::string(y));
    cells.Set(ColumnExclude, row, std::string(exclude));
}

TEST(Selection, OnlyTheXCellAndTheFirstLetterOfExcludeDecide) {
    DataMatrix cells;
    const char* const excludes[] = {"y", "Yes, a spike", "0", "N", "1", " Y"};
    for (std::int32_t row = 1; row <= 6; ++row)
        Put(cells, row, "1", "2", excludes[row - 1]);
    Put(cells, 7, "", "2");
    Put(cells, 8, "3", "");
    Put(cells, 9, "4.5", "4.5");
    cells.Set(ColumnX, 10, 7.25);
    cells.Set(ColumnExclude, 11, 0.0);
    cells.Set(ColumnX, 11, 1.0);
    const EvaluationArrays arrays = SelectRows(cells);
    EXPECT_EQ(arrays.rows, (std::vector<std::int32_t>{4, 5, 6, 8, 9, 10}));
    EXPECT_EQ(arrays.Y, (std::vector<double>{2, 2, 2, 0, 4.5, 0}));
    EXPECT_TRUE(arrays.XYDiffer);
}

TEST(Selection, WhatIsNoNumberCountsAsZero) {
    DataMatrix cells;
    Put(cells, 1, "abc", "1,5");
    Put(cells, 2, "1e999", "0x10");
    Put(cells, 3, " 2.5d1 ", "1e-1");
    cells.Set(ColumnSDX, 3, std::string("?"));
    cells.Set(ColumnSDY, 3, std::string("0.5"));
    const EvaluationArrays arrays = SelectRows(cells);
    EXPECT_EQ(arrays.X, (std::vector<double>{0, 0, 25}));
    EXPECT_EQ(arrays.Y, (std::vector<double>{0, 0, 0.1}));
    EXPECT_EQ(arrays.SDX, (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(arrays.SDY, (std::vector<double>{0, 0, 0.5}));
}

TEST(Selection, AnIgnoredSideHasANegligibleSD) {
    EvaluationArrays arrays;
    arrays.SDX = {0, 2};
    arrays.SDY = {0, 3};
    AnalysisOptions options;
    options.UNCERTAINTY_X = 1;
    options.UNCERTAINTY_Y = 2; // neither cleared nor set
    IgnoreUncertainties(arrays, options);
    EXPECT_EQ(arrays.SDX, (std::vector<double>{1e-30, 1e-30}));
    EXPECT_EQ(arrays.SDY, (std::vector<double>{0, 3}));
}

} // namespace
} // namespace corvane
