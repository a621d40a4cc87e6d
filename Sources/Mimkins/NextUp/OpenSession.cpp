#include "NextUp/OpenSession.h"

#include "Base/Link.h"
#include "Base/Log.h"
#include "Session/DeepLink.h"

namespace mimkins {

namespace {

constexpr const char* category = "panel";

} // namespace

void openLink(const std::optional<std::string>& link, LinkOpener& opener) {
    if (!link) {
        return;
    }
    if (linkScheme(*link) == "file") {
        opener.showFile(*link);
    } else {
        opener.openLink(*link);
    }
}

void jump(const Session& session, LinkOpener& opener) {
    const auto link = session.jumpURL();
    if (!link) {
        log::write(log::Level::standard, category, "click: " + session.id + " has no desktop session id");
        return;
    }
    log::write(log::Level::standard, category, "click: opening " + *link);
    openLink(link, opener);
}

void newSession(const Session& session, const std::optional<std::string>& prompt, LinkOpener& opener) {
    openLink(deep_link::newSession(session.folder, prompt), opener);
}

void showFolder(const Session& session, LinkOpener& opener) {
    if (session.folder) {
        opener.showFolder(*session.folder);
    }
}

} // namespace mimkins
