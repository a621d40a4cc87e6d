#include "Background/MarkerSearch.h"

#include "Background/MarkerPairs.h"

#include <cstring>

namespace mimkins {

namespace {

/// Sixteen bytes side by side, in the compiler's own notation, which becomes SSE2 or NEON.
using Bytes = unsigned char __attribute__((vector_size(16)));
using Words = std::uint64_t __attribute__((vector_size(16)));

constexpr std::size_t width = sizeof(Bytes);

inline Bytes load(const char* from) {
    Bytes bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

inline Bytes where(Bytes bytes, char wanted) {
    const auto byte = static_cast<unsigned char>(wanted);
    const Bytes pattern{byte, byte, byte, byte, byte, byte, byte, byte,
                        byte, byte, byte, byte, byte, byte, byte, byte};
    return reinterpret_cast<Bytes>(bytes == pattern);
}

/// Which of the 16 positions begin a telling pair. Pairs with a byte in common share its comparison.
inline Bytes pairsAt(const char* from) {
    const Bytes first = load(from);
    const Bytes second = load(from + 1);
    const Bytes secondIsS = where(second, 'S');
    const Bytes afterK = where(second, 'g') | where(second, '-') | secondIsS;
    const Bytes afterN = where(second, 'C') | where(second, 'D');
    const Bytes afterL = secondIsS | where(second, 'B');
    return (where(first, 'k') & afterK) | (where(first, 'n') & afterN) | (where(first, 'l') & afterL) |
           (where(first, 'S') & where(second, 'c'));
}

inline bool any(Bytes bytes) {
    const Words words = reinterpret_cast<Words>(bytes);
    return (words[0] | words[1]) != 0;
}

} // namespace

void findMarkersPortably(std::string_view bytes, std::vector<MarkerHit>& hits) {
    constexpr std::size_t stride = 2 * width;
    std::size_t position = 0;
    while (position + stride < bytes.size()) {
        const char* from = bytes.data() + position;
        if (any(pairsAt(from) | pairsAt(from + width))) {
            for (std::size_t offset = 0; offset < stride; ++offset) {
                pairs::confirm(bytes, position + offset, hits);
            }
        }
        position += stride;
    }
    pairs::confirmFrom(bytes, position, hits);
}

MarkerSearch fastestMarkerSearch() {
    return processorHasAvx2() ? &findMarkersWithAvx2 : &findMarkersPortably;
}

} // namespace mimkins
