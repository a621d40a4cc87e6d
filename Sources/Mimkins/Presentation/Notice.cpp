#include "Presentation/Notice.h"

#include "Base/StableSeed.h"
#include "Presentation/Elapsed.h"

namespace mimkins {

namespace {

std::string showSubtitle(const NextUp::Press& press, Date now) {
    const Session& session = *press.session;
    std::string words =
        std::string(label(session.mood)) + " for " + elapsed(now - session.since) + " · press again to open";
    if (press.others > 0) {
        words += " · " + std::to_string(press.others) + " more";
    }
    return words;
}

} // namespace

Notice notice(const NextUp::Press& press, Date now) {
    if (press.kind == NextUp::Press::Kind::nothingWaits || !press.session) {
        return {"Nothing waiting on you", "All pets are busy or resting 🎉", 0};
    }
    const Session& session = *press.session;
    const std::string name = session.title.value_or(session.project);
    const auto seed = stableSeed(session.id);
    if (press.kind == NextUp::Press::Kind::open) {
        return {"Opening " + name, std::string(label(session.mood)), seed};
    }
    return {"Next up: " + name, showSubtitle(press, now), seed};
}

} // namespace mimkins
