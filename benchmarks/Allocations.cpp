#include "Allocations.h"

#include <atomic>
#include <cstddef>

// The C library gives its allocator a second name, so that a program can put itself in front of the first.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);

namespace {

std::atomic<std::uint64_t> allocations{0};

} // namespace

extern "C" void* malloc(std::size_t size) noexcept
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}

extern "C" void* realloc(void* block, std::size_t size) noexcept
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(block, size);
}

namespace korvanel::bench {

std::uint64_t AllocationCount()
{
    return allocations.load(std::memory_order_relaxed);
}

} // namespace korvanel::bench
