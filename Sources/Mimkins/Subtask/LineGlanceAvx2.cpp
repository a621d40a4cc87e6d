#include "Background/MarkerSearch.h"
#include "Subtask/LineGlance.h"
#include "Subtask/LineIds.h"

// As with the search for markers, the functions name their instruction set themselves.
#if defined(__x86_64__)

#include <immintrin.h>

#include <algorithm>
#include <cstddef>

#define MIMKINS_AVX2 __attribute__((target("avx2")))

namespace mimkins {

namespace {

/// Where two or three bytes stand side by side, at 32 places at once.
struct Neighbours {
    static constexpr std::size_t width = sizeof(__m256i);
    /// How many bytes are looked at.
    static constexpr std::size_t reach = width + 2;

    MIMKINS_AVX2 explicit Neighbours(const char* from)
        : first(load(from)), second(load(from + 1)), third(load(from + 2)) {}

    MIMKINS_AVX2 static __m256i load(const char* from) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    }

    MIMKINS_AVX2 static __m256i is(const __m256i& bytes, char wanted) {
        return _mm256_cmpeq_epi8(bytes, _mm256_set1_epi8(wanted));
    }

    MIMKINS_AVX2 __m256i are(char one, char two) const {
        return _mm256_and_si256(is(first, one), is(second, two));
    }

    MIMKINS_AVX2 __m256i are(char one, char two, char three) const {
        return _mm256_and_si256(are(one, two), is(third, three));
    }

    __m256i first;
    __m256i second;
    __m256i third;
};

MIMKINS_AVX2 inline bool any(const __m256i& bytes) {
    return _mm256_testz_si256(bytes, bytes) == 0;
}

MIMKINS_AVX2 Glance glance(std::string_view line) {
    const std::size_t last = line.size() - Neighbours::reach;
    __m256i effort = _mm256_setzero_si256();
    for (std::size_t position = 0;; position = std::min(position + Neighbours::width, last)) {
        const Neighbours bytes(line.data() + position);
        effort = _mm256_or_si256(effort, bytes.are('f', 'f', 'o'));
        if (any(_mm256_or_si256(bytes.are('\\', 'u'), bytes.are('l', '_')))) {
            return {true, true};
        }
        if (position == last) {
            return {false, any(effort)};
        }
    }
}

MIMKINS_AVX2 bool onlyCalls(
    std::string_view line, bool isEffortKnown, const std::function<bool(std::string_view id)>& isAnswered
) {
    const std::size_t last = line.size() - Neighbours::reach;
    for (std::size_t position = 0;; position = std::min(position + Neighbours::width, last)) {
        const Neighbours bytes(line.data() + position);
        const __m256i escapes = bytes.are('\\', 'u');
        const __m256i others = _mm256_or_si256(bytes.are('l', '_', 'r'), bytes.are('t', 'H'));
        if (any(_mm256_or_si256(escapes, others)) || (!isEffortKnown && any(bytes.are('f', 'f', 'o')))) {
            return false;
        }
        auto ids = static_cast<unsigned>(_mm256_movemask_epi8(bytes.are('i', 'd', '"')));
        for (; ids != 0; ids &= ids - 1) {
            const auto place = position + static_cast<std::size_t>(__builtin_ctz(ids));
            if (!isAnsweredAt(line, place, isAnswered)) {
                return false;
            }
        }
        if (position == last) {
            return true;
        }
    }
}

bool isForAvx2(std::string_view line) {
    static const bool available = processorHasAvx2();
    return available && line.size() >= Neighbours::reach;
}

} // namespace

Glance glanceAt(std::string_view line) {
    return isForAvx2(line) ? glance(line) : glanceAtPortably(line);
}

bool holdsOnlyCalls(
    std::string_view line, bool isEffortKnown, const std::function<bool(std::string_view id)>& isAnswered
) {
    return isForAvx2(line) ? onlyCalls(line, isEffortKnown, isAnswered)
                           : holdsOnlyCallsPortably(line, isEffortKnown, isAnswered);
}

} // namespace mimkins

#else

namespace mimkins {

Glance glanceAt(std::string_view line) {
    return glanceAtPortably(line);
}

bool holdsOnlyCalls(
    std::string_view line, bool isEffortKnown, const std::function<bool(std::string_view id)>& isAnswered
) {
    return holdsOnlyCallsPortably(line, isEffortKnown, isAnswered);
}

} // namespace mimkins

#endif
