// Linked into every fuzz target: ASan settings and an allocator shim that keep runs fast when
// each run allocates the program's tables at their fixed capacity.
#include <array>
#include <cstdlib>
#include <malloc.h>
#include <new>
#include <utility>

namespace {

// ASan maps and unmaps every block above 128 KiB, and the program's tables at their fixed
// capacity (some 2 MB, allocated by every run) would then cost each run thousands of page
// faults. Freed blocks of that size wait here for the next run that asks for the same size.
constexpr std::size_t kLargeBlock = std::size_t{1} << 17;
struct CachedBlock {
    void *block;
    std::size_t size;
};
std::array<CachedBlock, 64> cachedBlocks{};

} // namespace

// A smaller quarantine of freed memory than ASan's 256 MB: each run frees some 3 MB, and
// memory that leaves the quarantine only after a hundred runs comes back as page faults.
extern "C" const char *__asan_default_options() {
    return "quarantine_size_mb=16:allocator_release_to_os_interval_ms=-1";
}

namespace {

void *Allocate(std::size_t size) noexcept {
    if (size >= kLargeBlock)
        for (CachedBlock &c : cachedBlocks)
            if (c.block != nullptr && c.size == size)
                return std::exchange(c.block, nullptr);
    return std::malloc(size == 0 ? 1 : size);
}

void Free(void *block) noexcept {
    if (block == nullptr)
        return;
    const std::size_t size = ::malloc_usable_size(block);
    if (size >= kLargeBlock)
        for (CachedBlock &c : cachedBlocks)
            if (c.block == nullptr) {
                c = {block, size};
                return;
            }
    std::free(block);
}

void *AllocateOrThrow(std::size_t size) {
    if (void *block = Allocate(size))
        return block;
    throw std::bad_alloc();
}

} // namespace

// Every form of new and delete but the aligned ones (which keep ASan's own pair).
void *operator new(std::size_t size) {
    return AllocateOrThrow(size);
}
void *operator new[](std::size_t size) {
    return AllocateOrThrow(size);
}
void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    return Allocate(size);
}
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept {
    return Allocate(size);
}
void operator delete(void *block) noexcept {
    Free(block);
}
void operator delete[](void *block) noexcept {
    Free(block);
}
void operator delete(void *block, std::size_t) noexcept {
    Free(block);
}
void operator delete[](void *block, std::size_t) noexcept {
    Free(block);
}
void operator delete(void *block, const std::nothrow_t &) noexcept {
    Free(block);
}
void operator delete[](void *block, const std::nothrow_t &) noexcept {
    Free(block);
}
