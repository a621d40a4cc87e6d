#pragma once

#include "Base/Date.h"
#include "Base/Handle.h"
#include "Platform/PreferencesStore.h"
#include "Platform/RunLoop.h"
#include "Platform/SoundPlayer.h"
#include "Session/Session.h"
#include "Settings/Preference.h"
#include "Settings/QuickPrompts.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// What the settings say about how pets move and look. The theme adds the colours.
struct PetMotion {
    double speed = 1; ///< multiplier on animation time
    bool antics = true;
    bool party = false;
    std::uint64_t shuffle = 0;

    friend bool operator==(const PetMotion&, const PetMotion&) = default;
};

/// The user's preferences. They are read from the store once, at creation; a change is stored at once.
/// Nothing is clamped: limits stand with the controls. Main thread only.
class AppSettings {
    // Stands first, since the preferences below refer to it.
    PreferencesStore& defaults_;
    PreferenceSignal changed_;
    Preference<bool>::Place boolean_{defaults_, changed_};
    Preference<std::int64_t>::Place whole_{defaults_, changed_};
    Preference<std::string>::Place string_{defaults_, changed_};

public:
    struct Parts {
        PreferencesStore& defaults;
        RunLoop& loop;
        SoundPlayer& sounds;
    };

    /// The parts must outlive this.
    explicit AppSettings(const Parts& parts);
    AppSettings(const AppSettings&) = delete;
    AppSettings& operator=(const AppSettings&) = delete;

    Preference<std::string> themeId{string_, "themeId", "night"};
    Preference<Liveliness> liveliness{{defaults_, changed_}, "liveliness", Liveliness::normal};
    Preference<PetSize> petSize{{defaults_, changed_}, "petSize", PetSize::medium};
    Preference<bool> antics{boolean_, "antics", true};
    Preference<bool> nameTags{boolean_, "nameTags", true};
    Preference<bool> crewHeads{boolean_, "crewHeads", true};
    Preference<bool> modelBadges{boolean_, "modelBadges", true};
    Preference<DrawerWidth> drawerWidth{{defaults_, changed_}, "drawerWidth", DrawerWidth::regular};
    Preference<double> tabHeight{{defaults_, changed_}, "tabHeight", 0.62};
    Preference<bool> showDone{boolean_, "showDone", true};
    Preference<ReorderMode> reorder{{defaults_, changed_}, "reorder", ReorderMode::whenNeeded};
    Preference<std::int64_t> leaveAfterMinutes{whole_, "leaveAfterMinutes", 30};
    Preference<std::int64_t> stuckAfterMinutes{whole_, "stuckAfterMinutes", 10};
    Preference<bool> chirp{boolean_, "chirp", false};
    Preference<std::string> chirpSound{string_, "chirpSound", "Pop"};
    Preference<bool> wiggleTab{boolean_, "wiggleTab", true};
    Preference<bool> menuBarCount{boolean_, "menuBarCount", true};
    Preference<std::int64_t> shuffle{whole_, "shuffle", 0};
    Preference<Hotkey> hotkey{{defaults_, changed_}, "hotkey", Hotkey::optCmdP};
    Preference<std::string> customPrompt{string_, "customPrompt", ""};

    /// The key under which a party is told; nothing is stored under it.
    static constexpr std::string_view partyKey = "partyUntil";

    /// Emits the key of a preference after it has changed, and `partyKey` when a party begins, is prolonged,
    /// or has ended.
    PreferenceSignal& changed() { return changed_; }

    /// The store behind the preferences, which holds a few keys of others too.
    PreferencesStore& defaults() const { return defaults_; }

    /// When the last party ends or ended. Lives as long as the process.
    std::optional<Date> partyUntil() const { return partyUntil_; }

    /// The side of a pet's square in points.
    double petPoints() const { return points(petSize()); }

    /// The drawer's width in points.
    double panelWidth() const { return points(drawerWidth()); }

    SessionRules rules() const;

    /// The multiplier on animation time.
    double petSpeed() const { return animationSpeed(liveliness()); }

    bool partying(Date now) const { return partyUntil_ && *partyUntil_ > now; }

    /// What is mixed into every pet's seed; a stored number below 0 counts as 0.
    std::uint64_t petShuffle() const;

    PetMotion petMotion(Date now) const { return {petSpeed(), antics(), partying(now), petShuffle()}; }

    std::vector<QuickPrompt> quickPrompts() const { return mimkins::quickPrompts(customPrompt()); }

    /// Plays the chosen sound once, whether or not chirping is on.
    void playChirp() const { sounds_.play(chirpSound()); }

    /// Gives every pet a new look and name.
    void shufflePets();

    /// Lets all pets dance for 8 seconds from now, and tells again when that is over.
    void throwParty();

private:
    RunLoop& loop_;
    SoundPlayer& sounds_;
    std::optional<Date> partyUntil_;
    std::map<std::uint64_t, Handle> partyEnds_; ///< the timers of parties, by number
    std::uint64_t nextParty_ = 0;
};

} // namespace mimkins
