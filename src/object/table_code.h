#pragma once

#include <utility>

#include "base/text.h"

namespace rulemesh {

/// The code of a table as somebody wrote it, in any case; "" is no table.
class TableCode {
public:
    TableCode() = default;
    explicit TableCode(Text StrCode) : StrCode_(std::move(StrCode)) {}

    [[nodiscard]] bool IsNone() const noexcept { return StrCode_.empty(); }
    [[nodiscard]] const Text& Written() const noexcept { return StrCode_; }

    friend bool operator==(const TableCode&, const TableCode&) = default;

private:
    Text StrCode_;
};

} // namespace rulemesh
