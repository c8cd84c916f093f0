// All memory of this program is asked for here.

#include "core/short_memory.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

std::size_t refused = 0;

}  // namespace

void orv::refuseMemory(std::size_t bytes) { refused = bytes; }

void* operator new(std::size_t bytes) {
    const bool none = refused != 0 && bytes >= refused && std::exchange(refused, 0) != 0;
    void* memory = none ? nullptr : std::malloc(bytes > 0 ? bytes : 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
