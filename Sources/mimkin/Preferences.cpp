#include "Preferences.h"

#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/OneLoad.h"
#include "Settings/AppSettings.h"

#include <string>

namespace mimkins {

namespace {

class Silence final : public SoundPlayer {
public:
    void play(const std::string&) override {}
};

} // namespace

ListPreferences readPreferences(const Paths& paths) {
    JsonPreferencesStore store(paths.preferencesFolder(), "app.mimkins");
    StandingLoop loop(Date{});
    Silence silence;
    const AppSettings settings({store, loop, silence});
    return {settings.rules(), settings.petShuffle()};
}

} // namespace mimkins
