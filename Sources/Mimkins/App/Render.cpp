#include "App/Render.h"

#include "App/RenderScene.h"
#include "App/SilentServices.h"
#include "Drawing/Qt/Scheme.h"
#include "HUD/HUDView.h"
#include "NextUp/NextUpPress.h"
#include "PanelView/EdgeTab.h"
#include "PanelView/PanelView.h"
#include "PanelView/SlideWindow.h"
#include "Presentation/Notice.h"
#include "Presentation/PanelFrames.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cmath>

namespace mimkins {

namespace {

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

} // namespace

void prepareRendering(const Options& options) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
}

void setTextSize(const Options& options) {
    if (options.textSize == 1) {
        return;
    }
    QFont font = QApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(Typography::usualPixels * options.textSize)));
    QApplication::setFont(font);
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
    return writePicture(compose(drawer, tab, frames), options.output);
}

int renderDrawer(const Options& options, const Paths& paths) {
    RenderScene scene(options, paths);
    NoLinks links;
    DrawerState state;
    if (options.command == Options::Command::renderSweep) {
        state.setMode(DrawerMode::sweep);
    }
    auto* panel = new PanelView({scene.store(), state, scene.loop(), links}, scene.settings());
    return writeDrawer({panel, scene.settings(), scene.store(), scene.loop()}, options);
}

int renderHud(const Options& options, const Paths& paths) {
    RenderScene scene(options, paths);
    const auto press = NextUp::press({}, scene.store().sessions(), scene.at());
    HUDView view;
    view.setAttribute(Qt::WA_TranslucentBackground);
    view.setContent(
        notice(press, scene.at()), PetTheme::named(scene.settings().themeId).resolved(systemScheme())
    );
    view.resize(view.sizeHint());
    return writePicture(view.grab().toImage(), options.output);
}

} // namespace mimkins
