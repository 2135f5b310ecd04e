#pragma once

#include <cstddef>

namespace rulemesh {

/// While it lives, allocations by `new` fail: the one of that number, counted from 1, and with `AndAllBehind` every
/// later one too. For programs that are linked with failing_memory.cpp; one at a time.
class FailingMemory {
public:
    enum class Which { Alone, AndAllBehind };

    explicit FailingMemory(std::size_t number, Which which = Which::Alone) noexcept;
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    /// Whether an allocation has failed by now.
    [[nodiscard]] bool HasFailed() const noexcept;
};

} // namespace rulemesh
