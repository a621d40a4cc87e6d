#pragma once

#include "App/Options.h"
#include "App/SilentServices.h"
#include "Base/Paths.h"
#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/OneLoad.h"
#include "Presentation/PanelSettings.h"
#include "Settings/AppSettings.h"

#include <QImage>

namespace mimkins {

/// A home's sessions and settings as they stand at the moment that a picture shows, with what the options ask
/// for in place of the settings.
class RenderScene {
public:
    RenderScene(const Options& options, const Paths& paths);

    SessionStore& store() { return load_.store(); }

    RunLoop& loop() { return load_.loop(); }

    Date at() const { return at_; }

    const PanelSettings& settings() const { return panel_; }

private:
    Date at_;
    StandingLoop standing_;
    NoSounds sounds_;
    JsonPreferencesStore preferences_;
    AppSettings settings_;
    OneLoad load_;
    PanelSettings panel_;
};

/// The moment that a picture shows.
Date renderedMoment(const Options& options);

/// Writes a picture. Gives the exit code; a failure is told on standard error.
int writePicture(const QImage& picture, const std::string& file);

} // namespace mimkins
