#include "Sweep/RepositoryOwners.h"

#include "Base/Text.h"
#include "Sweep/TranscriptSearch.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace mimkins {

namespace {

std::vector<std::string> distinctNames(const std::vector<std::string>& files) {
    std::set<std::string> names;
    for (const auto& file : files) {
        names.emplace(text::lastPathComponent(file));
    }
    return {names.begin(), names.end()};
}

std::vector<bool> changesBy(
    const SessionTranscripts& session, const NameSearch& search, Date since, const RandomAccessFiles& opener
) {
    std::vector<bool> changed(search.names().size());
    for (const auto& path : session.paths) {
        if (const auto transcript = opener.open(path)) {
            findChanges(*transcript, {search, since}, changed);
        }
    }
    return changed;
}

} // namespace

RepositoryOwners owners(
    const std::vector<std::string>& files, const std::vector<SessionTranscripts>& sessions, Date since,
    const RandomAccessFiles& opener
) {
    RepositoryOwners result;
    const NameSearch search(distinctNames(files));
    for (const auto& session : sessions) {
        const auto changed = changesBy(session, search, since, opener);
        for (const auto& file : files) {
            const auto name =
                std::lower_bound(search.names().begin(), search.names().end(), text::lastPathComponent(file));
            if (changed[static_cast<std::size_t>(name - search.names().begin())]) {
                result[file].insert(session.sessionId);
            }
        }
    }
    return result;
}

} // namespace mimkins
