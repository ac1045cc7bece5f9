// Counts what operator new hands out, so that a benchmark can report the peak heap of a redraw.
#include "heap_peak.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> live{0};
std::atomic<std::size_t> peak{0};
std::atomic<bool> counting{true};

void *Allocate(std::size_t size) {
    void *p = std::malloc(size == 0 ? 1 : size);
    if (!p)
        throw std::bad_alloc();
    if (!counting.load(std::memory_order_relaxed))
        return p;
    const std::size_t now =
        live.fetch_add(malloc_usable_size(p), std::memory_order_relaxed) + malloc_usable_size(p);
    std::size_t seen = peak.load(std::memory_order_relaxed);
    while (now > seen && !peak.compare_exchange_weak(seen, now, std::memory_order_relaxed)) {
    }
    return p;
}

void Release(void *p) {
    if (!p)
        return;
    if (counting.load(std::memory_order_relaxed))
        live.fetch_sub(malloc_usable_size(p), std::memory_order_relaxed);
    std::free(p);
}

} // namespace

void *operator new(std::size_t size) {
    return Allocate(size);
}
void *operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void *p) noexcept {
    Release(p);
}
void operator delete[](void *p) noexcept {
    Release(p);
}
void operator delete(void *p, std::size_t) noexcept {
    Release(p);
}
void operator delete[](void *p, std::size_t) noexcept {
    Release(p);
}

namespace vorna::bench {

void ResetHeapPeak() {
    peak.store(live.load(std::memory_order_relaxed), std::memory_order_relaxed);
}

std::size_t HeapLive() {
    return live.load(std::memory_order_relaxed);
}

std::size_t HeapPeak() {
    return peak.load(std::memory_order_relaxed);
}

UncountedHeap::UncountedHeap() {
    counting.store(false, std::memory_order_relaxed);
}

UncountedHeap::~UncountedHeap() {
    counting.store(true, std::memory_order_relaxed);
}

std::size_t MallocInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

} // namespace vorna::bench
