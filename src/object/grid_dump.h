#pragma once

#include <optional>

#include "base/text.h"
#include "object/dump_number.h"

namespace rulemesh {

/// The dump to which the rules in a grid belong; none before the first load. The number keeps the digits in which it
/// was told, since the tag of CmbDump shows them, and since "0" stands for no rules while "00" is a dump like others.
class GridDump {
public:
    enum class Digits { Plain, Two };

    GridDump() = default;
    explicit GridDump(DumpNumber number, Digits digits = Digits::Plain) : number_(number), digits_(digits) {}

    [[nodiscard]] bool IsNone() const noexcept { return !number_; }

    /// Raises TypeMismatch when there is none.
    [[nodiscard]] DumpNumber Number() const;

    /// Whether rules belong to it that can be stored.
    [[nodiscard]] bool HasRules() const noexcept;

    /// As the tag of CmbDump shows it: "", "7" or "07".
    [[nodiscard]] Text Tag() const;

    friend bool operator==(const GridDump&, const GridDump&) = default;

private:
    std::optional<DumpNumber> number_;
    Digits digits_ = Digits::Plain;
};

} // namespace rulemesh
