#include "Subtask/SubtaskReader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

// The metadata file beside a subagent's transcript.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (mimkins::subtaskMetadata(text).description.empty()) {
        std::abort();
    }
    return 0;
}
