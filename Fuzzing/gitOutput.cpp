#include "Sweep/GitOutput.h"
#include "Base/Text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// What git prints, as every one of its readers may find it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace mimkins;
    const std::string text = text::repairUtf8({reinterpret_cast<const char*>(data), size});
    const auto counts = gitOutput::lineCounts(text);
    bool sound = counts.added >= 0 && counts.removed >= 0;
    std::size_t length = 0;
    for (const auto& name : gitOutput::nulSeparated(text)) {
        sound = sound && !name.empty() && name.find('\0') == std::string::npos;
        length += name.size();
    }
    const auto branch = gitOutput::branchName(text);
    sound = sound && length <= text.size() && (!branch || !branch->empty());
    // Nothing but the user's and the system's settings is harmless.
    sound = sound && gitOutput::namesOwnSetting("local\tfilter.x.clean\n" + text);
    const Date committed = gitOutput::commitTime(text);
    sound = sound && gitOutput::commitTime(text) == committed;
    if (!sound && committed == committed) {
        std::abort();
    }
    return 0;
}
