#pragma once

#include "views/row_numbers.h"

namespace rulemesh {

/// Where the rows of a grid stand, all of one height, with the row `top` at the upper edge. In twips, or in whatever
/// unit the height is given in.
class RowPlaces {
public:
    constexpr RowPlaces(GridRow top, int height) noexcept : top_(top), height_(height) {}

    [[nodiscard]] constexpr GridRow Top() const noexcept { return top_; }
    [[nodiscard]] constexpr int RowHeight() const noexcept { return height_; }

    /// The upper edge of a row; below 0 for one that is scrolled out of sight.
    [[nodiscard]] constexpr int TopOf(GridRow row) const noexcept { return (row - top_) * height_; }

    /// Whether a row lies wholly between the upper edge and this far below it.
    [[nodiscard]] constexpr bool Fits(GridRow row, int room) const noexcept
    {
        return row >= top_ && TopOf(row + 1) <= room;
    }

    /// The row that begins exactly here; NoGridRow when none that is in sight does.
    [[nodiscard]] constexpr GridRow RowThatBeginsAt(int place) const noexcept
    {
        return place >= 0 && place % height_ == 0 ? top_ + place / height_ : NoGridRow;
    }

    /// How many whole rows have room.
    [[nodiscard]] constexpr int CountIn(int room) const noexcept { return room / height_; }

private:
    GridRow top_;
    int height_;
};

} // namespace rulemesh
