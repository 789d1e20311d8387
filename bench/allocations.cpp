#include "bench/allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::int64_t count = 0;  // benchmarks run on one thread

}  // namespace

std::int64_t qor::bench::Allocations() noexcept { return count; }

void* operator new(std::size_t size) {
    ++count;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
