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

} // namespace vorna::bench
