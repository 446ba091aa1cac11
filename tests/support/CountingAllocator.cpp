#include "support/CountingAllocator.h"

#include <cstdlib>
#include <new>

// A separate file: a compiler that inlines these operators warns of a mismatched pair.

namespace {

std::size_t count = 0;
std::size_t bytes = 0;

} // namespace

std::size_t allocationCount() {
    return count;
}

std::size_t allocatedBytes() {
    return bytes;
}

void* operator new(std::size_t size) {
    ++count;
    bytes += size;
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
