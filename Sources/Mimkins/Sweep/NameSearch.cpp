#include "Sweep/NameSearch.h"

#include <array>
#include <utility>

namespace mimkins {

NameSearch::NameSearch(std::vector<std::string> names) : names_(std::move(names)) {
    classify();
    plant();
    close();
}

/// Gives each byte that a name has a class of its own, which keeps the table small, and notes the pairs of
/// bytes at which names end.
void NameSearch::classify() {
    classOf_.assign(256, 0);
    const auto mark = [this](char first, char second) {
        const std::array<char, 2> bytes{first, second};
        std::uint16_t pair = 0;
        std::memcpy(&pair, bytes.data(), sizeof pair);
        endings_.set(pair);
    };
    for (const auto& name : names_) {
        for (const char character : name) {
            auto& byteClass = classOf_[static_cast<unsigned char>(character)];
            if (byteClass == 0) {
                byteClass = static_cast<std::uint32_t>(classes_++);
            }
        }
        if (name.size() > 1) {
            mark(name[name.size() - 2], name.back());
        } else if (!name.empty()) {
            for (int before = 0; before < 256; ++before) {
                mark(static_cast<char>(before), name.back());
            }
        }
    }
}

/// Makes the tree of the reversed names. A missing branch leads to state 0, the root.
void NameSearch::plant() {
    states_.emplace_back();
    next_.assign(classes_, 0);
    for (std::size_t index = 0; index < names_.size(); ++index) {
        std::uint32_t state = 0;
        for (auto character = names_[index].rbegin(); character != names_[index].rend(); ++character) {
            const auto branch = state * classes_ + classOf_[static_cast<unsigned char>(*character)];
            if (next_[branch] == 0) {
                next_[branch] = static_cast<std::uint32_t>(states_.size());
                states_.emplace_back();
                next_.resize(states_.size() * classes_, 0);
            }
            state = next_[branch];
        }
        if (state != 0) {
            states_[state].name = static_cast<std::int32_t>(index);
        }
    }
}

/// Turns the tree into an automaton, nearest states first: a missing branch leads to where the longest suffix
/// leads.
void NameSearch::close() {
    found_.assign(states_.size(), 0);
    std::vector<std::uint32_t> queue{0};
    for (std::size_t position = 0; position < queue.size(); ++position) {
        const auto state = queue[position];
        const auto fallback = states_[state].fallback;
        states_[state].nextFound = found_[fallback];
        found_[state] = states_[state].name >= 0 ? state : found_[fallback];
        for (std::size_t byteClass = 0; byteClass < classes_; ++byteClass) {
            auto& branch = next_[state * classes_ + byteClass];
            const auto detour = next_[fallback * classes_ + byteClass];
            if (branch == 0) {
                branch = detour;
            } else {
                states_[branch].fallback = state == 0 ? 0 : detour;
                queue.push_back(branch);
            }
        }
    }
}

} // namespace mimkins
