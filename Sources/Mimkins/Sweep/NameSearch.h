#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// Finds many names at once in bytes that are read backwards. An automaton over the reversed names takes one
/// step a byte, however many names there are, and where no name can end it isn't even asked.
class NameSearch {
public:
    /// The names are told apart by their index. They are distinct; an empty one is never found.
    explicit NameSearch(std::vector<std::string> names);

    const std::vector<std::string>& names() const { return names_; }

    /// How far into a name the bytes seen so far reach.
    struct Progress {
        std::uint32_t state = 0;
    };

    /// Walks through `block` from its end to its beginning, which continues a walk through the bytes behind
    /// it. Calls `visit(index, position)` for each occurrence, overlapping ones too, at the position in the
    /// block where it begins (it may end behind the block). Stops early once `visit` gives false, and then
    /// gives false itself.
    template <typename Visit>
    bool walk(std::string_view block, Progress& progress, Visit visit) const {
        std::size_t position = block.size();
        while (position > 0) {
            if (progress.state == 0) {
                position = skip(block, position);
            }
            --position;
            const auto byte = static_cast<unsigned char>(block[position]);
            progress.state = next_[progress.state * classes_ + classOf_[byte]];
            for (auto state = found_[progress.state]; state != 0; state = states_[state].nextFound) {
                if (!visit(static_cast<std::size_t>(states_[state].name), position)) {
                    return false;
                }
            }
        }
        return true;
    }

private:
    struct State {
        std::int32_t name = -1;      ///< the name that is complete here
        std::uint32_t fallback = 0;  ///< the longest proper suffix that is a state
        std::uint32_t nextFound = 0; ///< the next shorter suffix that is a name
    };

    void classify();
    void plant();
    void close();

    /// The last position not above `position` before which the two bytes may end a name.
    std::size_t skip(std::string_view block, std::size_t position) const {
        while (position > 1) {
            std::uint16_t pair = 0;
            std::memcpy(&pair, block.data() + position - 2, sizeof pair);
            if (endings_[pair]) {
                break;
            }
            --position;
        }
        return position;
    }

    std::vector<std::string> names_;
    std::vector<std::uint32_t> classOf_; ///< of each byte; bytes that no name has share class 0
    std::size_t classes_ = 1;
    std::vector<State> states_;
    std::vector<std::uint32_t> next_;  ///< by state and class
    std::vector<std::uint32_t> found_; ///< by state: itself or its longest suffix that is a name, 0 for none
    std::bitset<65'536> endings_;      ///< by two bytes in the machine's order
};

} // namespace mimkins
