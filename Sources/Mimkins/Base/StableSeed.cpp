#include "Base/StableSeed.h"

namespace mimkins {

std::uint64_t stableSeed(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325U; // FNV-1a offset basis
    for (const char character : text) {
        hash ^= static_cast<unsigned char>(character);
        hash *= 0x100000001b3U; // FNV-1a prime
    }
    hash ^= hash >> 30U;
    hash *= 0xbf58476d1ce4e5b9U;
    hash ^= hash >> 27U;
    hash *= 0x94d049bb133111ebU;
    hash ^= hash >> 31U;
    return hash;
}

} // namespace mimkins
