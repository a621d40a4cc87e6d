#include "Background/MarkerSearch.h"

// The functions below name their instruction set themselves, so that this file is compiled with the same
// flags as all others and the rest of the program stays free of instructions that an older processor lacks.
#if defined(__x86_64__)

#include <immintrin.h>

#define MIMKINS_AVX2 __attribute__((target("avx2")))

namespace mimkins {

namespace {

constexpr std::size_t width = sizeof(__m256i);
constexpr std::size_t stride = 2 * width;

/// A marker is looked for by the low halves of four of its bytes, which stand so far from the first of them.
constexpr std::array<std::size_t, 4> steps{0, 1, 2, 4};
constexpr std::size_t reach = steps.back();

/// Where in each marker its four bytes begin: "ith I", "<task", "uled ", "nCrea", "CronD", "skSto", "KillS",
/// "KillB". Of all places these are the ones at which code, prose and JSON deceive the search most rarely:
/// about once in 10,000 bytes.
constexpr std::array<std::size_t, markerBytes.size()> offsets{12, 0, 5, 3, 0, 2, 0, 0};

/// For one of the four bytes, by its low half: bit n of an entry says that the half is that of marker n.
using HalfTable = std::array<std::uint8_t, 16>;

constexpr std::array<HalfTable, steps.size()> halfTables = [] {
    std::array<HalfTable, steps.size()> tables{};
    for (std::size_t step = 0; step < steps.size(); ++step) {
        for (std::size_t marker = 0; marker < markerBytes.size(); ++marker) {
            const auto byte = static_cast<unsigned char>(markerBytes[marker][offsets[marker] + steps[step]]);
            auto& entry = tables[step][byte & 0x0fU];
            entry = static_cast<std::uint8_t>(entry | (1U << marker));
        }
    }
    return tables;
}();

struct Tables {
    __m256i first;
    __m256i second;
    __m256i third;
    __m256i fourth;
};

/// The same 16 entries in both halves of a register, as the shuffle wants them.
MIMKINS_AVX2 inline __m256i spread(const HalfTable& table) {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(table.data())));
}

/// The entries of 32 bytes. The shuffle goes by the low half of an index and gives 0 for an index above 127,
/// which no byte of a marker is.
MIMKINS_AVX2 inline __m256i entries(const __m256i& table, const char* from) {
    return _mm256_shuffle_epi8(table, _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from)));
}

/// Bit n of each of 32 bytes tells that the four bytes of marker n may begin there.
MIMKINS_AVX2 inline __m256i candidatesAt(const char* from, const Tables& tables) {
    const __m256i front =
        _mm256_and_si256(entries(tables.first, from + steps[0]), entries(tables.second, from + steps[1]));
    const __m256i back =
        _mm256_and_si256(entries(tables.third, from + steps[2]), entries(tables.fourth, from + steps[3]));
    return _mm256_and_si256(front, back);
}

/// What is searched, and what was found so far.
struct Search {
    std::string_view bytes;
    std::vector<MarkerHit>& hits;

    /// Takes the marker whose four bytes would begin at `position`, if it is there.
    void confirm(std::size_t position, std::size_t marker) {
        const std::size_t offset = offsets[marker];
        if (position >= offset && position < bytes.size() &&
            bytes.substr(position - offset).starts_with(markerBytes[marker])) {
            hits.push_back({position - offset, static_cast<Marker>(marker)});
        }
    }
};

/// A byte for each of so many positions.
using Candidates = std::array<std::uint64_t, stride / sizeof(std::uint64_t)>;

void confirmEach(const Candidates& candidates, std::size_t position, Search& search) {
    for (const auto eight : candidates) {
        for (auto left = eight; left != 0; left &= left - 1) {
            const auto bit = static_cast<std::size_t>(__builtin_ctzll(left));
            search.confirm(position + bit / 8, bit % 8);
        }
        position += sizeof eight;
    }
}

/// Examines `stride` positions from `position` on. Their bytes stand at `from`, with `reach` more behind
/// them.
MIMKINS_AVX2 inline void
examine(const char* from, std::size_t position, const Tables& tables, Search& search) {
    const __m256i front = candidatesAt(from, tables);
    const __m256i back = candidatesAt(from + width, tables);
    const __m256i either = _mm256_or_si256(front, back);
    if (_mm256_testz_si256(either, either) == 0) {
        Candidates candidates;
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(&candidates[0]), front);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(&candidates[candidates.size() / 2]), back);
        confirmEach(candidates, position, search);
    }
}

MIMKINS_AVX2 void searchAll(std::string_view bytes, std::vector<MarkerHit>& hits) {
    const Tables tables{
        spread(halfTables[0]), spread(halfTables[1]), spread(halfTables[2]), spread(halfTables[3])};
    Search search{bytes, hits};
    std::size_t position = 0;
    for (; position + stride + reach <= bytes.size(); position += stride) {
        examine(bytes.data() + position, position, tables, search);
    }
    // The rest is examined in a copy with room behind it.
    std::array<char, 2 * stride + reach> rest{};
    bytes.copy(rest.data(), stride + reach, position);
    examine(rest.data(), position, tables, search);
    examine(rest.data() + stride, position + stride, tables, search);
}

} // namespace

bool processorHasAvx2() {
    return __builtin_cpu_supports("avx2") != 0;
}

void findMarkersWithAvx2(std::string_view bytes, std::vector<MarkerHit>& hits) {
    static const bool available = processorHasAvx2();
    available ? searchAll(bytes, hits) : findMarkersPortably(bytes, hits);
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
