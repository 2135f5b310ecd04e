#include "program/end_without_memory.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

#include "commands/exit_status.h"

namespace rulemesh {

void EndWithoutMemory()
{
    try {
        if (const std::exception_ptr thrown = std::current_exception())
            std::rethrow_exception(thrown);
    } catch (const std::bad_alloc&) {
        std::fputs("rulemesh: out of memory\n", stderr);
        std::_Exit(RanOutOfMemory);
    }
    std::abort();
}

} // namespace rulemesh
