#include "support/failing_memory.h"

#include <cstdlib>
#include <new>

namespace {

using Which = rulemesh::FailingMemory::Which;

std::size_t toGo = 0; // allocations up to the one that fails; 0 when none is to fail
Which failing = Which::Alone;
bool hasFailed = false;

bool IsDue() noexcept
{
    if (toGo == 0)
        return hasFailed && failing == Which::AndAllBehind;
    --toGo;
    hasFailed = toGo == 0;
    return hasFailed;
}

void* AllocateOrNull(std::size_t size) noexcept { return IsDue() ? nullptr : std::malloc(size == 0 ? 1 : size); }

void* Allocate(std::size_t size)
{
    void* const memory = AllocateOrNull(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

} // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrNull(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrNull(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace rulemesh {

FailingMemory::FailingMemory(std::size_t number, Which which) noexcept
{
    toGo = number;
    failing = which;
    hasFailed = false;
}

FailingMemory::~FailingMemory()
{
    toGo = 0;
    hasFailed = false;
}

bool FailingMemory::HasFailed() const noexcept { return hasFailed; }

} // namespace rulemesh
