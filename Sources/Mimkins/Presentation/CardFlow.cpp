#include "Presentation/CardFlow.h"

#include <algorithm>
#include <utility>

namespace mimkins {

namespace {

constexpr double presenceGrain = 0.01;

} // namespace

double CardFlow::Place::opacity() const {
    return std::clamp(presence_.value(), 0.0, 1.0);
}

CardFlow::Place CardFlow::take(const Slot& slot, double y, Manner manner) {
    const auto known = std::find_if(places_.begin(), places_.end(), [&slot](const Place& place) {
        return place.id_ == slot.id;
    });
    Place place;
    if (known != places_.end()) {
        place = std::move(*known);
        places_.erase(known);
    } else {
        place.id_ = slot.id;
        place.y_.jump(y);
        place.height_.jump(slot.height);
        place.presence_.setGrain(presenceGrain);
    }
    place.y_.setTarget(y);
    place.height_.setTarget(slot.height);
    place.presence_.setTarget(1);
    if (manner == Manner::jump) {
        place.y_.jump(y);
        place.height_.jump(slot.height);
        place.presence_.jump(1);
    }
    return place;
}

void CardFlow::arrange(const std::vector<Slot>& slots, Manner manner, SpringFeel feel) {
    feel_ = feel;
    std::vector<Place> placed;
    placed.reserve(slots.size());
    double y = padding;
    for (const auto& slot : slots) {
        placed.push_back(take(slot, y, manner));
        y += slot.height + spacing;
    }
    contentHeight_ = slots.empty() ? 0 : y - spacing + padding;
    for (auto& leaving : places_) {
        leaving.presence_.setTarget(0);
    }
    std::move(placed.begin(), placed.end(), std::back_inserter(places_));
    if (manner == Manner::jump) {
        dropGone();
    }
}

bool CardFlow::step(double seconds) {
    bool moving = false;
    for (auto& place : places_) {
        const bool along = place.y_.step(seconds, feel_);
        const bool taller = place.height_.step(seconds, feel_);
        const bool present = place.presence_.step(seconds, feel_);
        moving = along || taller || present || moving;
    }
    std::erase_if(places_, [](const Place& place) {
        return place.isLeaving() && place.presence_.value() <= presenceGrain;
    });
    return moving && !places_.empty();
}

void CardFlow::finish() {
    dropGone();
    for (auto& place : places_) {
        place.y_.jump(place.y_.target());
        place.height_.jump(place.height_.target());
        place.presence_.jump(1);
    }
}

void CardFlow::dropGone() {
    std::erase_if(places_, [](const Place& place) { return place.isLeaving(); });
}

const CardFlow::Place* CardFlow::find(const std::string& id) const {
    const auto found =
        std::find_if(places_.begin(), places_.end(), [&id](const Place& place) { return place.id() == id; });
    return found != places_.end() ? &*found : nullptr;
}

} // namespace mimkins
