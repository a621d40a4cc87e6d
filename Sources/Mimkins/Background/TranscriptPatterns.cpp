#include "Background/TranscriptPatterns.h"

#include "Base/Log.h"

#include <algorithm>
#include <cstdlib>

namespace mimkins::patterns {

namespace {

/// Ends a match that gets lost in a line made to keep it busy, after a few seconds' worth of steps. The unit
/// is the engine's, so that the outcome is the same on every machine.
constexpr int32_t stepLimit = 20'000;

/// The places of one text in a line, asked for in ascending order.
class Places {
public:
    Places(const icu::UnicodeString& line, const icu::UnicodeString& wanted) : line_(line), wanted_(wanted) {}

    /// The first place at or after `begin`, or -1.
    int32_t next(int32_t begin) {
        if (place_ != -1 && place_ < begin) {
            place_ = line_.indexOf(wanted_, begin);
        }
        return place_;
    }

private:
    const icu::UnicodeString& line_;
    const icu::UnicodeString& wanted_;
    int32_t place_ = line_.indexOf(wanted_);
};

} // namespace

Matcher::Matcher(const char16_t* pattern) {
    UErrorCode status = U_ZERO_ERROR;
    matcher_ = std::make_unique<icu::RegexMatcher>(icu::UnicodeString(pattern), 0, status);
    matcher_->setTimeLimit(stepLimit, status);
    if (U_FAILURE(status)) {
        log::write(log::Level::fault, "background", "A transcript pattern does not compile.");
        std::abort();
    }
}

Groups Matcher::groups() const {
    Groups result;
    for (int32_t group = 1; group <= matcher_->groupCount(); ++group) {
        UErrorCode status = U_ZERO_ERROR;
        if (matcher_->start(group, status) < 0) {
            result.emplace_back();
        } else {
            matcher_->group(group, status).toUTF8String(result.emplace_back().emplace());
        }
    }
    return result;
}

std::optional<Groups> Matcher::first(const icu::UnicodeString& line) {
    UErrorCode status = U_ZERO_ERROR;
    matcher_->reset(line);
    return matcher_->find(status) != 0 ? std::optional<Groups>(groups()) : std::nullopt;
}

std::vector<Groups> Matcher::all(const icu::UnicodeString& line) {
    std::vector<Groups> result;
    UErrorCode status = U_ZERO_ERROR;
    matcher_->reset(line);
    while (matcher_->find(status) != 0) {
        result.push_back(groups());
    }
    return result;
}

std::vector<Groups> Matcher::allBeginningWith(
    const icu::UnicodeString& line, const icu::UnicodeString& optional, const icu::UnicodeString& required
) {
    std::vector<Groups> result;
    UErrorCode status = U_ZERO_ERROR;
    Places optionalPlaces(line, optional);
    Places requiredPlaces(line, required);
    matcher_->reset(line);
    int32_t begin = 0;
    while (U_SUCCESS(status)) {
        const int32_t needed = requiredPlaces.next(begin);
        if (needed < 0) {
            break;
        }
        const int32_t preferred = optionalPlaces.next(begin);
        begin = preferred < 0 ? needed : std::min(needed, preferred);
        matcher_->region(begin, line.length(), status);
        if (matcher_->lookingAt(status) != 0) {
            result.push_back(groups());
            begin = matcher_->end(status);
        } else {
            ++begin;
        }
    }
    return result;
}

} // namespace mimkins::patterns
