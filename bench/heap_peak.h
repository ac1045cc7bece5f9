// The heap a stretch of code takes at its peak, from a count kept by the bench's operator new.
#pragma once

#include <cstddef>

namespace vorna::bench {

// Starts a new peak at the bytes live now.
void ResetHeapPeak();
// Bytes allocated through operator new and not yet freed.
std::size_t HeapLive();
// The most that were live since the last reset.
std::size_t HeapPeak();
// Bytes the process's allocator holds in use now, operator new or not (malloc's own count).
std::size_t MallocInUse();

// Leaves operator new to plain malloc while it lives, so that a benchmark times allocation as a
// program of its own would; what is allocated meanwhile must be freed before it goes.
class UncountedHeap {
public:
    UncountedHeap();
    ~UncountedHeap();
    UncountedHeap(const UncountedHeap &) = delete;
    UncountedHeap &operator=(const UncountedHeap &) = delete;
};

} // namespace vorna::bench
