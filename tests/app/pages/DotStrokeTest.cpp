#include "pages/DotStroke.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

TEST(DotGridGeometry, APointIsCutTowardsZeroToItsCell)
{
    EXPECT_EQ(DotGridGeometry::cellAt(5, 5), (DotCell{0, 0}));
    EXPECT_EQ(DotGridGeometry::cellAt(20.9, 13.9), (DotCell{0, 0})) << "the gap belongs to the cell before it";
    EXPECT_EQ(DotGridGeometry::cellAt(21, 14), (DotCell{1, 1}));
    EXPECT_EQ(DotGridGeometry::cellAt(-10, -3), (DotCell{0, 0})) << "cut towards zero, not down";
    EXPECT_EQ(DotGridGeometry::cellAt(260.9, 148.9), (DotCell{15, 15}));
}

TEST(DotGridGeometry, PointsOutsideTheGridHaveNoCell)
{
    EXPECT_EQ(DotGridGeometry::cellAt(-11, 5), std::nullopt);
    EXPECT_EQ(DotGridGeometry::cellAt(5, -4), std::nullopt);
    EXPECT_EQ(DotGridGeometry::cellAt(261, 5), std::nullopt);
    EXPECT_EQ(DotGridGeometry::cellAt(5, 149), std::nullopt);
}

TEST(CellsOnLine, BothEndsAreIncludedInAllDirections)
{
    EXPECT_EQ(cellsOnLine({3, 3}, {3, 3}), (std::vector<DotCell>{{3, 3}}));
    EXPECT_EQ(cellsOnLine({0, 0}, {5, 2}), (std::vector<DotCell>{{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 2}, {5, 2}}));
    EXPECT_EQ(cellsOnLine({2, 2}, {2, 0}), (std::vector<DotCell>{{2, 2}, {2, 1}, {2, 0}}));
    EXPECT_EQ(cellsOnLine({2, 2}, {0, 0}), (std::vector<DotCell>{{2, 2}, {1, 1}, {0, 0}}));
}

TEST(CellsOnLine, NeverLeavesAGapBetweenAnyTwoCells)
{
    for (int x = 0; x < 16; ++x) {
        for (int y = 0; y < 16; ++y) {
            const auto cells = cellsOnLine({7, 9}, {x, y});
            EXPECT_EQ(cells.size(), static_cast<std::size_t>(std::max(std::abs(x - 7), std::abs(y - 9)) + 1));
            for (std::size_t i = 1; i < cells.size(); ++i) {
                EXPECT_LE(std::abs(cells[i].x - cells[i - 1].x), 1);
                EXPECT_LE(std::abs(cells[i].y - cells[i - 1].y), 1);
            }
        }
    }
}

} // namespace
} // namespace orvim
