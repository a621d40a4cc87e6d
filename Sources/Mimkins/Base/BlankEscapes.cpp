#include "Base/BlankEscapes.h"

// The functions below name their instruction set themselves, so that the rest of the program stays free of
// instructions that an older processor lacks.
#if defined(__x86_64__)

#include <immintrin.h>

#include <cstddef>

#define MIMKINS_AVX2 __attribute__((target("avx2")))

namespace mimkins::json {

namespace {

constexpr std::size_t width = sizeof(__m256i);

/// Never stands in the middle of a sequence, nor right behind a backslash between two steps.
struct Blanker {
    std::string_view text;
    char* into;
    std::size_t position = 0;

    /// Takes a character or a sequence.
    bool step() {
        constexpr std::string_view second = "\"\\/bfnrt";
        if (text[position] != '\\') {
            into[position] = text[position];
            ++position;
            return true;
        }
        if (position + 1 == text.size() || second.find(text[position + 1]) == std::string_view::npos) {
            return false;
        }
        into[position] = blank;
        into[position + 1] = blank;
        position += 2;
        return true;
    }

    bool stepTo(std::size_t end) {
        while (position < text.size() && (position < end || text[position - 1] == '\\')) {
            if (!step()) {
                return false;
            }
        }
        return true;
    }

    /// Takes 32 bytes that hold no sequences but those of a backslash and something else. False, and nothing
    /// taken, if there are others.
    MIMKINS_AVX2 bool stride() {
        // By the low and the high half of a byte, the second characters but the backslash: a bit that both
        // entries have.
        const __m256i low = _mm256_broadcastsi128_si256(
            _mm_setr_epi8(0, 0, 7, 0, 4, 0, 2, 0, 0, 0, 0, 0, 0, 0, 2, 1) // "br, t, f, n, /
        );
        const __m256i high =
            _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 0, 1, 0, 0, 0, 2, 4, 0, 0, 0, 0, 0, 0, 0, 0));
        const __m256i half = _mm256_set1_epi8(0x0f);
        const __m256i backslash = _mm256_set1_epi8('\\');
        const auto* from = text.data() + position;
        const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
        const __m256i before = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from - 1));
        const __m256i isFirst = _mm256_cmpeq_epi8(bytes, backslash);
        const __m256i isSecond = _mm256_cmpeq_epi8(before, backslash);
        const __m256i fits = _mm256_and_si256(
            _mm256_shuffle_epi8(low, _mm256_and_si256(bytes, half)),
            _mm256_shuffle_epi8(high, _mm256_and_si256(_mm256_srli_epi16(bytes, 4), half))
        );
        const __m256i other = _mm256_and_si256(isSecond, _mm256_cmpeq_epi8(fits, _mm256_setzero_si256()));
        if (_mm256_testz_si256(other, other) == 0) {
            return false;
        }
        const __m256i sequence = _mm256_or_si256(isFirst, isSecond);
        _mm256_storeu_si256(
            reinterpret_cast<__m256i*>(into + position),
            _mm256_blendv_epi8(bytes, _mm256_set1_epi8(blank), sequence)
        );
        // A sequence that goes on behind is taken again, whole.
        position += from[width - 1] == '\\' ? width - 1 : width;
        return true;
    }

    MIMKINS_AVX2 bool run() {
        if (!stepTo(1)) {
            return false;
        }
        while (position + width <= text.size()) {
            if (!stride() && !stepTo(position + width)) {
                return false;
            }
        }
        return stepTo(text.size());
    }
};

} // namespace

bool blankEscapes(std::string_view text, char* into) {
    static const bool available = __builtin_cpu_supports("avx2") != 0;
    return available && Blanker{text, into}.run();
}

} // namespace mimkins::json

#else

namespace mimkins::json {

bool blankEscapes(std::string_view, char*) {
    return false;
}

} // namespace mimkins::json

#endif
