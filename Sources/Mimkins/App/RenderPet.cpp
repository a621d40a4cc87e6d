#include "App/RenderPet.h"

#include "App/GifFile.h"
#include "App/PetPictures.h"
#include "Pet/PosterTime.h"
#include "Pet/Stage.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iostream>
#include <string_view>
#include <utility>

namespace mimkins {

namespace {

using Output = PetRenderOptions::Output;

/// A film begins this many seconds into its time, since a routine at 0 is shown at its best moment.
constexpr double justAfter = 1e-9;

PetLook lookOf(const PetRenderOptions& options, const PetTheme& theme) {
    PetLook look;
    look.hue = theme.petHue;
    look.saturation = theme.petSaturation;
    look.brightness = theme.petBrightness;
    look.outline = theme.petOutline;
    look.speed = options.speed;
    look.antics = !options.noAntics;
    look.party = options.party;
    look.shuffle = options.shuffle;
    look.forceTrick = options.trick;
    return look;
}

double now() {
    using Seconds = std::chrono::duration<double>;
    return Seconds(std::chrono::system_clock::now().time_since_epoch()).count() - animationReference;
}

/// The date at which a pet's own clock shows `t`.
Date dateOf(double t, const Pet& pet, const PetLook& look) {
    const double offset = petFrame(pet, look, Date{animationReference}).t;
    return Date{animationReference + (t - offset) / look.speed};
}

PetPicture pictureOf(const PetRenderOptions& options, PetAction action) {
    PetPicture picture;
    picture.theme = &PetTheme::named(options.theme);
    picture.look = lookOf(options, *picture.theme);
    picture.date = Date{animationReference + options.clock.value_or(now())};
    picture.pet = {action, options.seed, picture.date - options.elapsed, options.effort, options.waiting};
    picture.pixels = options.size;
    return picture;
}

/// Shows one routine at a moment of the pet's own clock.
PetPicture pictureOf(const PetRenderOptions& options, Routine routine, double t) {
    PetPicture picture = pictureOf(options, PetAction::idle);
    if (!options.clock) {
        picture.date = dateOf(t, picture.pet, picture.look);
        picture.pet.since = picture.date - options.elapsed;
    }
    Cue cue;
    cue.routine = routine;
    if (takesPhase(routine)) {
        cue.phase = t;
    } else if (routine == Routine::wallClock) {
        cue.phase = options.elapsed / 60;
    }
    picture.routine = cue;
    return picture;
}

std::optional<PetAction> knownAction(const std::string& word) {
    const auto action = petActionNamed(word);
    if (!action) {
        std::cerr << "mimkins: there is no action \"" << word << "\". There are:";
        for (std::size_t index = 0; index < petActionCount; ++index) {
            std::cerr << " " << name(static_cast<PetAction>(index));
        }
        std::cerr << "\n";
    }
    return action;
}

std::optional<Routine> knownRoutine(const std::string& word) {
    const auto routine = routineNamed(word);
    if (!routine) {
        std::cerr << "mimkins: there is no routine \"" << word << "\". There are:";
        for (std::size_t index = 0; index < routineCount; ++index) {
            std::cerr << " " << name(static_cast<Routine>(index));
        }
        std::cerr << "\n";
    }
    return routine;
}

/// The pet that the options describe, `later` seconds on.
std::optional<PetPicture> askedFor(const PetRenderOptions& options, double later) {
    if (options.routine) {
        const auto routine = knownRoutine(*options.routine);
        if (!routine) {
            return std::nullopt;
        }
        const double start = later == 0 ? posterTime(*routine) : 0;
        return pictureOf(options, *routine, start + later);
    }
    const auto action = knownAction(options.action);
    if (!action) {
        return std::nullopt;
    }
    PetPicture picture = pictureOf(options, *action);
    picture.date = picture.date + later;
    return picture;
}

SheetCell cellOf(const PetPicture& picture, std::string label) {
    return {petImage(picture), picture.theme, std::move(label)};
}

struct SheetRange {
    std::string_view name;
    Routine first;
    Routine last;
};

constexpr std::array<SheetRange, 4> ranges{{
    {"work", Routine::laptop, Routine::conductor},
    {"waiting", Routine::bothArmsWave, Routine::partyDance},
    {"idle", Routine::lookAroundScene, Routine::boredThenButterfly},
    {"tricks", Routine::wipeBrow, Routine::headband},
}};

std::vector<SheetCell> routineCells(const PetRenderOptions& options, const SheetRange& range) {
    std::vector<SheetCell> cells;
    for (auto index = static_cast<std::size_t>(range.first); index <= static_cast<std::size_t>(range.last);
         ++index) {
        const auto routine = static_cast<Routine>(index);
        PetRenderOptions one = options;
        one.seed = options.seed + index * 37;
        if (range.name == "tricks") {
            one.effort = routine == Routine::guruHover ? 2 : 1;
        }
        cells.push_back(cellOf(pictureOf(one, routine, posterTime(routine)), std::string(name(routine))));
    }
    return cells;
}

std::vector<SheetCell> actionCells(const PetRenderOptions& options) {
    std::vector<SheetCell> cells;
    for (std::size_t index = 0; index < petActionCount; ++index) {
        const auto action = static_cast<PetAction>(index);
        PetRenderOptions one = options;
        one.seed = options.seed + index * 37;
        cells.push_back(cellOf(pictureOf(one, action), std::string(name(action))));
    }
    return cells;
}

std::vector<SheetCell> themeCells(const PetRenderOptions& options) {
    constexpr std::array shown{PetAction::typing,   PetAction::hammering, PetAction::raisingHand,
                               PetAction::yourTurn, PetAction::resting,   PetAction::idle};
    std::vector<SheetCell> cells;
    for (const PetTheme& theme : PetTheme::all()) {
        PetRenderOptions one = options;
        one.theme = theme.id;
        for (const PetAction action : shown) {
            one.seed += 41;
            cells.push_back(cellOf(pictureOf(one, action), std::string(theme.id)));
        }
    }
    return cells;
}

/// A row for each theme: three heads, each without a boost, with a band and with a halo.
std::vector<SheetCell> headCells(const PetRenderOptions& options) {
    constexpr std::array boosts{"", " high", " top"};
    constexpr std::uint64_t seeds = 3;
    std::vector<SheetCell> cells;
    for (const PetTheme& theme : PetTheme::all()) {
        const PetLook look = lookOf(options, theme);
        for (std::uint64_t index = 0; index < seeds; ++index) {
            for (std::size_t boost = 0; boost < boosts.size(); ++boost) {
                const MiniHead head{options.seed + index * 97, static_cast<int>(boost)};
                cells.push_back(
                    {headImage(head, look, options.size), &theme, std::string(theme.id) + boosts[boost]}
                );
            }
        }
    }
    return cells;
}

std::vector<SheetCell> sheetCells(const PetRenderOptions& options) {
    if (options.sheet == "actions") {
        return actionCells(options);
    }
    if (options.sheet == "themes") {
        return themeCells(options);
    }
    if (options.sheet == "heads") {
        return headCells(options);
    }
    for (const SheetRange& range : ranges) {
        if (range.name == options.sheet) {
            return routineCells(options, range);
        }
    }
    return {};
}

int columnsOf(std::string_view sheet) {
    return sheet == "themes" ? 6 : sheet == "heads" ? 9 : 7;
}

bool isGif(const std::string& file) {
    return QString::fromStdString(file).endsWith(".gif", Qt::CaseInsensitive);
}

int renderGif(const PetRenderOptions& options) {
    constexpr double usualRate = 20; // a second; a whole number of hundredths each
    Film film;
    film.frames = options.frames.value_or(std::max(1, static_cast<int>(options.seconds * usualRate)));
    film.frameSeconds = options.seconds / film.frames;
    film.frame = [&](int frame) {
        return petOnSky(*askedFor(options, film.frameSeconds * frame + justAfter));
    };
    if (!writeGif(film, options.file)) {
        std::cerr << "mimkins: can't write " << options.file << "\n";
        return 1;
    }
    return 0;
}

int renderStrip(const PetRenderOptions& options) {
    constexpr int usualFrames = 12;
    const int frames = options.frames.value_or(usualFrames);
    std::vector<SheetCell> cells;
    for (int frame = 0; frame < frames; ++frame) {
        const double later = options.seconds * frame / frames;
        cells.push_back(
            cellOf(*askedFor(options, later + justAfter), QString::number(later, 'f', 2).toStdString() + " s")
        );
    }
    return saveImage(sheetImage(cells, usualFrames, !options.noLabels), options.file);
}

} // namespace

int renderPet(const PetRenderOptions& options) {
    const auto picture = askedFor(options, 0);
    if (!picture) {
        return 1;
    }
    if (options.output == Output::stage) {
        std::cout << stageJson(
                         petFrame(picture->pet, picture->look, picture->date),
                         actionOnStage(picture->pet, picture->look)
                     )
                  << "\n";
        return 0;
    }
    if (options.output == Output::commands) {
        std::cout << petCommands(*picture);
        return 0;
    }
    return saveImage(petImage(*picture), options.file);
}

int renderSheet(const PetRenderOptions& options) {
    const auto cells = sheetCells(options);
    return saveImage(sheetImage(cells, columnsOf(options.sheet), !options.noLabels), options.file);
}

int renderFilm(const PetRenderOptions& given) {
    PetRenderOptions options = given;
    if (!options.clock && !options.routine) {
        options.clock = now(); // one for all frames
    }
    if (!askedFor(options, justAfter)) {
        return 1;
    }
    return isGif(options.file) ? renderGif(options) : renderStrip(options);
}

} // namespace mimkins
