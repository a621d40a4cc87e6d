#include "Demo/Schedule.h"

#include <algorithm>
#include <cmath>

namespace mimkins::demo {

namespace {

/// A stretch of a member's life in seconds of the day since its first arrival.
struct Stretch {
    double from;
    double to;
};

void addAct(
    std::vector<Happening>& result, const Act& act, double beginning, const Stretch& wanted,
    const Appearance& appearance
) {
    for (const auto& step : act.steps) {
        const double at = beginning + step.at;
        if (at >= wanted.from && at < wanted.to) {
            result.push_back({at, appearance, &act, &step});
        }
    }
}

void addMember(std::vector<Happening>& result, std::size_t member, const Stretch& wanted) {
    if (wanted.to <= 0) {
        return;
    }
    const double length = script().length();
    const auto acts = dayOf(member);
    auto day = static_cast<std::size_t>(std::floor(std::max(0.0, wanted.from) / length));
    double beginning = static_cast<double>(day) * length;
    for (; beginning < wanted.to; ++day) {
        for (const Act* act : acts) {
            if (beginning < wanted.to && beginning + act->length >= wanted.from) {
                addAct(result, *act, beginning, wanted, {member, day});
            }
            beginning += act->length;
        }
        beginning = static_cast<double>(day + 1) * length;
    }
}

} // namespace

std::vector<const Act*> dayOf(std::size_t member) {
    // Coprime with the number of acts, so that neighbours differ and all acts are under way at once.
    constexpr std::size_t stride = 3;
    const auto& acts = script().acts;
    std::vector<const Act*> day{&script().arrival};
    for (std::size_t index = 0; index < acts.size(); ++index) {
        day.push_back(&acts[(member * stride + index) % acts.size()]);
    }
    day.push_back(&script().departure);
    return day;
}

std::vector<Happening> happenings(const Schedule& schedule, double from, double to) {
    std::vector<Happening> result;
    for (std::size_t member = 0; member < schedule.sessions; ++member) {
        const double arrival = static_cast<double>(member) * schedule.betweenStarts;
        const std::size_t first = result.size();
        addMember(result, member, {from * schedule.speed - arrival, to * schedule.speed - arrival});
        for (std::size_t index = first; index < result.size(); ++index) {
            result[index].at = (result[index].at + arrival) / schedule.speed;
        }
    }
    std::stable_sort(result.begin(), result.end(), [](const Happening& left, const Happening& right) {
        return left.at < right.at;
    });
    return result;
}

} // namespace mimkins::demo
