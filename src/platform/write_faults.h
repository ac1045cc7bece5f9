// Test seam of WriteFileAtomic: a test installs faults that make one step of a write fail as a
// refused folder, a full disk or a target that cannot be replaced would. The program installs none.
#pragma once

#include <filesystem>
#include <functional>

namespace vorna {

enum class WriteStep {
    Open,   // creating the temporary file beside the target
    Write,  // writing the text into it
    Rename, // putting it in the target's place
};

struct WriteFaults {
    // Asked before each step with the target file; true makes the step fail. A failing write has
    // put half of the text on disk first, as a disk that fills up does.
    std::function<bool(WriteStep step, const std::filesystem::path &target)> failsAt;
};

// Installs faults on the calling thread for as long as it lives.
class ScopedWriteFaults {
public:
    explicit ScopedWriteFaults(const WriteFaults &faults);
    ~ScopedWriteFaults();
    ScopedWriteFaults(const ScopedWriteFaults &) = delete;
    ScopedWriteFaults &operator=(const ScopedWriteFaults &) = delete;

private:
    const WriteFaults *previous_;
};

} // namespace vorna
