#pragma once

#include <optional>

#include "base/failure.h"

namespace rulemesh {

/// The failure that the action raises; nothing when it ends well.
template <typename Action> std::optional<FailureCode> FailureOf(Action action)
{
    try {
        action();
    } catch (const Failure& failure) {
        return failure.Code();
    }
    return std::nullopt;
}

} // namespace rulemesh
