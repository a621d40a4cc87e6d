#include "App/RenderScene.h"

#include "App/PanelSettingsOf.h"

#include <QString>

#include <chrono>
#include <iostream>

namespace mimkins {

namespace {

PanelSettings panelSettings(const Options& options, const AppSettings& settings, Date at) {
    PanelSettings panel = panelSettingsOf(settings, at);
    panel.themeId = options.theme.value_or(panel.themeId);
    if (options.width) {
        panel.panelWidth = points(*options.width);
    }
    return panel;
}

} // namespace

Date renderedMoment(const Options& options) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return Date::fromMilliseconds(options.at.value_or(Milliseconds(now).count()));
}

RenderScene::RenderScene(const Options& options, const Paths& paths)
    : at_(renderedMoment(options)), standing_(at_), preferences_(paths.preferencesFolder(), "app.mimkins"),
      settings_({preferences_, standing_, sounds_}), load_(paths, settings_.rules(), at_),
      panel_(panelSettings(options, settings_, at_)) {
    if (options.expanded) {
        store().toggleSubtasks(*options.expanded);
    }
}

int writePicture(const QImage& picture, const std::string& file) {
    if (!picture.save(QString::fromStdString(file), "PNG")) {
        std::cerr << "mimkins: can't write " << file << "\n";
        return 1;
    }
    return 0;
}

} // namespace mimkins
