#pragma once

#include "Pet/PetFrame.h"
#include "Pet/Routine.h"

#include <array>
#include <cstddef>
#include <string>

namespace mimkins {

/// What is on stage at one moment, in drawing order.
class Stage {
public:
    static constexpr std::size_t most = 8;

    /// A stage holds eight cues, more than any moment has.
    void add(const Cue& cue);

    void add(Routine routine) { add(Cue{routine, {}, {}, {}, {}}); }

    void add(Routine routine, double phase) { add(Cue{routine, phase, {}, {}, {}}); }

    void addManner(Routine routine, bool manner) { add(Cue{routine, {}, manner, {}, {}}); }

    const Cue* begin() const { return cues_.data(); }

    const Cue* end() const { return cues_.data() + count_; }

    std::size_t size() const { return count_; }

    const Cue& operator[](std::size_t index) const { return cues_[index]; }

    double thin = 0; ///< how much the body has wasted on each side, units

private:
    std::array<Cue, most> cues_{};
    std::size_t count_ = 0;
};

/// Decides by tables and choices alone what a pet acts out at this moment.
Stage stage(const PetFrame& frame, PetAction action);

/// The frame and what is on stage as JSON.
std::string stageJson(const PetFrame& frame, PetAction action);

} // namespace mimkins
