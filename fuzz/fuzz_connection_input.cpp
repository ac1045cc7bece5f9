// Fuzz target: the reader of "VornaNIn.txt" on arbitrary bytes, and the writers fed its result.
#include "exchange/connection_file.h"
#include "exchange/connection_input.h"

#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static auto model = std::make_unique<vorna::StructureModel>();
    vorna::ConnectionInput input;
    std::string text(reinterpret_cast<const char *>(data), size);
    vorna::ParseConnectionInput(text, input);
    // Every type code read must be usable by the connection file's key lines.
    vorna::ConnectionState state;
    state.baseNode = 0;
    model->nodeCount = 1;
    state.baseBarCount = 1;
    for (int t = 0; t <= vorna::kMaxBarTypes + 1; ++t) {
        state.baseBarTypes[0] = static_cast<std::int16_t>(t);
        (void)vorna::ConnectionFileText(*model, state, input);
    }
    return 0;
}
