#include "Background/MarkerPairs.h"

// The functions below name their instruction set themselves, so that this file is compiled with the same
// flags as all others and the rest of the program stays free of instructions that an older processor lacks.
#if defined(__x86_64__)

#include <immintrin.h>

#define MIMKINS_AVX2 __attribute__((target("avx2")))

namespace mimkins {

namespace {

/// For one byte of the pairs: a table by the byte's low half and one by its high half. Bit n of an entry says
/// that the half fits marker n, so both entries have bit n in common just where the byte is that of marker n.
struct HalfTables {
    std::array<std::uint8_t, 16> low{};
    std::array<std::uint8_t, 16> high{};

    constexpr void insert(char byte, std::size_t marker) {
        const auto value = static_cast<unsigned char>(byte);
        const auto bit = static_cast<std::uint8_t>(1U << marker);
        low[value & 0x0fU] = static_cast<std::uint8_t>(low[value & 0x0fU] | bit);
        high[value >> 4U] = static_cast<std::uint8_t>(high[value >> 4U] | bit);
    }
};

constexpr HalfTables tablesOf(char (*byteOf)(std::size_t)) {
    HalfTables tables;
    for (std::size_t marker = 0; marker < markerBytes.size(); ++marker) {
        tables.insert(byteOf(marker), marker);
    }
    return tables;
}

constexpr HalfTables firstTables = tablesOf(&pairs::first);
constexpr HalfTables secondTables = tablesOf(&pairs::second);

/// The same 16 entries in both halves of a register, as the shuffle wants them.
MIMKINS_AVX2 inline __m256i spread(const std::array<std::uint8_t, 16>& table) {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(table.data())));
}

struct Tables {
    __m256i firstLow;
    __m256i firstHigh;
    __m256i secondLow;
    __m256i secondHigh;
    __m256i lowHalf;
};

MIMKINS_AVX2 inline __m256i load(const char* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

MIMKINS_AVX2 inline __m256i highHalves(__m256i bytes, const Tables& tables) {
    return _mm256_and_si256(_mm256_srli_epi16(bytes, 4), tables.lowHalf);
}

/// Bit n of each of the 32 entries tells that the telling pair of marker n begins there. The shuffle goes by
/// the low half of an index and gives 0 for an index above 127, which no byte of a marker is.
MIMKINS_AVX2 inline __m256i pairsAt(const char* from, const Tables& tables) {
    const __m256i first = load(from);
    const __m256i second = load(from + 1);
    const __m256i firstFits = _mm256_and_si256(
        _mm256_shuffle_epi8(tables.firstLow, first),
        _mm256_shuffle_epi8(tables.firstHigh, highHalves(first, tables))
    );
    const __m256i secondFits = _mm256_and_si256(
        _mm256_shuffle_epi8(tables.secondLow, second),
        _mm256_shuffle_epi8(tables.secondHigh, highHalves(second, tables))
    );
    return _mm256_and_si256(firstFits, secondFits);
}

/// A bit for each entry that isn't 0.
MIMKINS_AVX2 inline std::uint32_t nonZero(__m256i entries) {
    const __m256i zero = _mm256_cmpeq_epi8(entries, _mm256_setzero_si256());
    return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(zero));
}

void confirmEach(
    std::string_view bytes, std::size_t position, std::uint32_t candidates, std::vector<MarkerHit>& hits
) {
    for (; candidates != 0; candidates &= candidates - 1) {
        pairs::confirm(bytes, position + static_cast<std::size_t>(__builtin_ctz(candidates)), hits);
    }
}

MIMKINS_AVX2 void search(std::string_view bytes, std::vector<MarkerHit>& hits) {
    constexpr std::size_t width = sizeof(__m256i);
    constexpr std::size_t stride = 2 * width;
    const Tables tables{
        spread(firstTables.low), spread(firstTables.high), spread(secondTables.low),
        spread(secondTables.high), _mm256_set1_epi8(0x0f)};
    std::size_t position = 0;
    while (position + stride < bytes.size()) {
        const char* from = bytes.data() + position;
        const __m256i front = pairsAt(from, tables);
        const __m256i back = pairsAt(from + width, tables);
        const __m256i either = _mm256_or_si256(front, back);
        if (_mm256_testz_si256(either, either) == 0) {
            confirmEach(bytes, position, nonZero(front), hits);
            confirmEach(bytes, position + width, nonZero(back), hits);
        }
        position += stride;
    }
    pairs::confirmFrom(bytes, position, hits);
}

} // namespace

bool processorHasAvx2() {
    return __builtin_cpu_supports("avx2") != 0;
}

void findMarkersWithAvx2(std::string_view bytes, std::vector<MarkerHit>& hits) {
    static const bool available = processorHasAvx2();
    available ? search(bytes, hits) : findMarkersPortably(bytes, hits);
}

} // namespace mimkins

#else

namespace mimkins {

bool processorHasAvx2() {
    return false;
}

void findMarkersWithAvx2(std::string_view bytes, std::vector<MarkerHit>& hits) {
    findMarkersPortably(bytes, hits);
}

} // namespace mimkins

#endif
