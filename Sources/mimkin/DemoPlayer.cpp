#include "DemoPlayer.h"

#include <algorithm>

namespace mimkins {

namespace {

constexpr double tickSeconds = 0.02;
/// How far a tick moves on at most, and how long it plays: what is more waits for the next one, so that a
/// signal is heard soon.
constexpr double longestTick = 0.1;

} // namespace

DemoPlayer::DemoPlayer(RunLoop& loop, DemoStage& stage, const demo::Schedule& schedule)
    : loop_(loop), stage_(stage), schedule_(schedule) {}

void DemoPlayer::start() {
    advanced_ = loop_.now();
    timer_ = loop_.every(tickSeconds, [this] { tick(); });
}

void DemoPlayer::tick() {
    const Date begun = loop_.now();
    if (due_.empty()) {
        advance();
    }
    while (!due_.empty()) {
        stage_.play(due_.front());
        due_.pop_front();
        ++steps_;
        const double spent = loop_.now() - begun;
        if (spent < 0 || spent > longestTick) {
            break;
        }
    }
}

void DemoPlayer::advance() {
    const Date now = loop_.now();
    // A clock that was set must neither stop the play nor rush it.
    const double passed = std::clamp(now - advanced_, 0.0, longestTick);
    advanced_ = now;
    const auto happenings = demo::happenings(schedule_, position_, position_ + passed);
    due_.assign(happenings.begin(), happenings.end());
    position_ += passed;
}

} // namespace mimkins
