#pragma once

#include <compare>
#include <cstdint>

namespace rulemesh {

/// The number of a dump. No row, index or count becomes one without saying so.
class DumpNumber {
public:
    constexpr explicit DumpNumber(std::int16_t number) noexcept : number_(number) {}

    [[nodiscard]] constexpr std::int16_t Value() const noexcept { return number_; }

    friend constexpr auto operator<=>(const DumpNumber&, const DumpNumber&) = default;

private:
    std::int16_t number_;
};

} // namespace rulemesh
