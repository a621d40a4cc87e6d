#include "App/Render.h"

#include "App/PanelSettingsOf.h"
#include "Drawing/Qt/Scheme.h"
#include "HUD/HUDView.h"
#include "NextUp/NextUpPress.h"
#include "PanelView/EdgeTab.h"
#include "PanelView/PanelView.h"
#include "PanelView/SlideWindow.h"
#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/OneLoad.h"
#include "Presentation/Notice.h"
#include "Presentation/PanelFrames.h"

#include <QImage>
#include <QPainter>

#include <chrono>
#include <iostream>

namespace mimkins {

namespace {

class NoLinks final : public LinkOpener {
public:
    void openLink(const std::string&) override {}

    void showFile(const std::string&) override {}

    void showFolder(const std::string&) override {}
};

class NoSounds final : public SoundPlayer {
public:
    void play(const std::string&) override {}
};

QImage compose(QWidget& drawer, EdgeTab& tab, const panel::Frames& frames) {
    const QPixmap drawerPicture = drawer.grab();
    const QPixmap tabPicture = tab.grab();
    const double ratio = drawerPicture.devicePixelRatio();
    const double left = frames.tab.x;
    const QSizeF size(frames.panel.maxX() - left, frames.panel.height);
    QImage image((size * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.drawPixmap(QPointF(frames.tab.x - left, frames.tab.y - frames.panel.y), tabPicture);
    painter.drawPixmap(QPointF(frames.panel.x - left, 0), drawerPicture);
    return image;
}

int write(const QImage& picture, const std::string& file) {
    if (!picture.save(QString::fromStdString(file), "PNG")) {
        std::cerr << "mimkins: can't write " << file << "\n";
        return 1;
    }
    return 0;
}

} // namespace

void prepareRendering(const Options& options) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
}

Date renderedMoment(const Options& options) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return Date::fromMilliseconds(options.at.value_or(Milliseconds(now).count()));
}

PanelSettings renderedSettings(const Options& options, const Paths& paths, Date at) {
    StandingLoop standing(at);
    NoSounds sounds;
    JsonPreferencesStore preferences(paths.preferencesFolder(), "app.mimkins");
    PanelSettings settings = panelSettingsOf(AppSettings({preferences, standing, sounds}), at);
    settings.themeId = options.theme.value_or(settings.themeId);
    settings.panelWidth = options.width ? points(*options.width) : settings.panelWidth;
    return settings;
}

int writeDrawer(const DrawerPicture& picture, const Options& options) {
    SlideWindow drawer(picture.panel);
    constexpr double margins = 16; // of the drawer, above and below
    const Rect screen{0, 0, 1280, options.height + margins};
    const auto frames =
        panel::framesDownwards({screen, picture.settings.panelWidth, picture.settings.tabPosition}, true);
    drawer.resize(static_cast<int>(frames.panel.width), static_cast<int>(frames.panel.height));
    EdgeTab tab(picture.loop);
    tab.setTheme(PetTheme::named(picture.settings.themeId));
    tab.setContent({edgeTabBadge(picture.store.sessions()), true});
    return write(compose(drawer, tab, frames), options.output);
}

int renderDrawer(const Options& options, const Paths& paths) {
    const Date at = renderedMoment(options);
    StandingLoop standing(at);
    NoLinks links;
    NoSounds sounds;
    JsonPreferencesStore preferences(paths.preferencesFolder(), "app.mimkins");
    const AppSettings settings({preferences, standing, sounds});
    OneLoad load(paths, settings.rules(), at);
    DrawerState state;
    if (options.command == Options::Command::renderSweep) {
        state.setMode(DrawerMode::sweep);
    }
    const PanelSettings shown = renderedSettings(options, paths, at);
    auto* panel = new PanelView({load.store(), state, load.loop(), links}, shown);
    return writeDrawer({panel, shown, load.store(), load.loop()}, options);
}

int renderHud(const Options& options, const Paths& paths) {
    const Date at = renderedMoment(options);
    StandingLoop standing(at);
    NoSounds sounds;
    JsonPreferencesStore preferences(paths.preferencesFolder(), "app.mimkins");
    const AppSettings settings({preferences, standing, sounds});
    OneLoad load(paths, settings.rules(), at);
    const auto press = NextUp::press({}, load.store().sessions(), at);
    HUDView view;
    view.setAttribute(Qt::WA_TranslucentBackground);
    view.setContent(
        notice(press, at),
        PetTheme::named(options.theme.value_or(settings.themeId())).resolved(systemScheme())
    );
    view.resize(view.sizeHint());
    return write(view.grab().toImage(), options.output);
}

} // namespace mimkins
