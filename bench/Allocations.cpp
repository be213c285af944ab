#include "bench/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long long> count = 0;

}  // namespace

namespace marvello::bench {

long long allocations() { return count; }

}  // namespace marvello::bench

void* operator new(std::size_t size) {
    count.fetch_add(1, std::memory_order_relaxed);
    if (void* made = std::malloc(size)) return made;
    throw std::bad_alloc();
}
void operator delete(void* gone) noexcept { std::free(gone); }
void operator delete(void* gone, std::size_t) noexcept { std::free(gone); }
