#include "Sweep/GitOutput.h"
#include "Base/Text.h"
#include "Support.h"

#include <cmath>

// What git prints, as every one of its readers may find it.

namespace {

using namespace mimkins;
using fuzz::require;

void requireSoundNames(const std::string& text) {
    std::string joined;
    for (const auto& name : gitOutput::nulSeparated(text)) {
        require(!name.empty() && name.find('\0') == std::string::npos, "a name holds something and no NUL");
        joined += name + '\0';
    }
    require(gitOutput::nulSeparated(joined) == gitOutput::nulSeparated(text), "names split the same again");
    std::string letters = text;
    std::erase(letters, '\0');
    std::erase(joined, '\0');
    require(joined == letters, "no letter of a name is lost");
}

void requireSoundCounts(const std::string& text) {
    const auto counts = gitOutput::lineCounts(text);
    require(counts.added >= 0 && counts.removed >= 0, "no count is negative");
    const std::string written = " 1 file changed, " + std::to_string(counts.added) + " insertions(+), " +
                                std::to_string(counts.removed) + " deletions(-)\n";
    require(gitOutput::lineCounts(written) == counts, "counts read back the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = text::repairUtf8(fuzz::asText(data, size));
    requireSoundCounts(text);
    requireSoundNames(text);
    const auto branch = gitOutput::branchName(text);
    require(
        !branch || (!branch->empty() && text.find(*branch) != std::string::npos), "a branch is as printed"
    );
    require(!branch || gitOutput::branchName(*branch) == branch, "a branch has no blanks around it");
    // Nothing but the user's and the system's settings is harmless.
    require(
        gitOutput::namesOwnSetting("local\tfilter.x.clean\n" + text), "a setting of the repository shows"
    );
    require(std::isfinite(gitOutput::commitTime(text).secondsSince1970), "a commit has a time");
    return 0;
}
