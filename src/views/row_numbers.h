#pragma once

#include <compare>

namespace rulemesh {

/// The number of a row. A plain number becomes one, but a row of one count never becomes a row of another: what turns
/// the one into the other has to say so.
template <typename Count> class RowNumber {
public:
    constexpr RowNumber(int number) noexcept : number_(number) {} // NOLINT(google-explicit-constructor)

    [[nodiscard]] constexpr int Number() const noexcept { return number_; }

    constexpr RowNumber& operator++() noexcept
    {
        ++number_;
        return *this;
    }

    friend constexpr RowNumber operator+(RowNumber row, int rows) noexcept { return row.number_ + rows; }
    friend constexpr RowNumber operator-(RowNumber row, int rows) noexcept { return row.number_ - rows; }
    friend constexpr int operator-(RowNumber one, RowNumber other) noexcept { return one.number_ - other.number_; }
    friend constexpr auto operator<=>(const RowNumber&, const RowNumber&) = default; // NOLINT(modernize-use-nullptr)

private:
    int number_;
};

/// Rows of a grid count from 0.
using GridRow = RowNumber<struct CountFromZero>;

/// Rows of a list count from 1.
using ListRow = RowNumber<struct CountFromOne>;

/// "No row" of a list, and of a grid.
inline constexpr ListRow NoListRow = 0;
inline constexpr GridRow NoGridRow = -1;

} // namespace rulemesh
