#include "App/RenderPet.h"

#include "App/PetPictures.h"
#include "Pet/PosterTime.h"
#include "Pet/Stage.h"

#include <chrono>
#include <iostream>

namespace mimkins {

namespace {

using Output = PetRenderOptions::Output;

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

int save(const QImage& image, const std::string& file) {
    if (!image.save(QString::fromStdString(file))) {
        std::cerr << "mimkins: can't write " << file << "\n";
        return 1;
    }
    return 0;
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
        cells.push_back({pictureOf(one, routine, posterTime(routine)), std::string(name(routine))});
    }
    return cells;
}

std::vector<SheetCell> actionCells(const PetRenderOptions& options) {
    std::vector<SheetCell> cells;
    for (std::size_t index = 0; index < petActionCount; ++index) {
        const auto action = static_cast<PetAction>(index);
        PetRenderOptions one = options;
        one.seed = options.seed + index * 37;
        cells.push_back({pictureOf(one, action), std::string(name(action))});
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
            cells.push_back({pictureOf(one, action), std::string(theme.id)});
        }
    }
    return cells;
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
    return save(petImage(*picture), options.file);
}

int renderSheet(const PetRenderOptions& options) {
    std::vector<SheetCell> cells;
    int columns = 7;
    if (options.sheet == "actions") {
        cells = actionCells(options);
    } else if (options.sheet == "themes") {
        cells = themeCells(options);
        columns = 6;
    } else {
        for (const SheetRange& range : ranges) {
            if (range.name == options.sheet) {
                cells = routineCells(options, range);
            }
        }
    }
    return save(sheetImage(cells, columns, !options.noLabels), options.file);
}

int renderFilm(const PetRenderOptions& options) {
    std::vector<SheetCell> cells;
    for (int frame = 0; frame < options.frames; ++frame) {
        const double later = options.seconds * frame / options.frames;
        auto picture = askedFor(options, later + 1e-9);
        if (!picture) {
            return 1;
        }
        cells.push_back({*picture, QString::number(later, 'f', 2).toStdString() + " s"});
    }
    return save(sheetImage(cells, 12, !options.noLabels), options.file);
}

} // namespace mimkins
