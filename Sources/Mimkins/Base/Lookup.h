#pragma once

namespace mimkins {

/// The value under a key, or a null pointer. The pointer is valid as long as the map keeps the entry.
template <typename Map>
const typename Map::mapped_type* lookup(const Map& map, const typename Map::key_type& key) {
    const auto entry = map.find(key);
    return entry != map.end() ? &entry->second : nullptr;
}

} // namespace mimkins
