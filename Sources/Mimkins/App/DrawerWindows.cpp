#include "App/DrawerWindows.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QWindow>

#include <variant>

namespace mimkins {

namespace {

constexpr const char* openKey = "drawerOpen";

bool storedOpen(const PreferencesStore& preferences) {
    const auto stored = preferences.value(openKey);
    const auto* open = stored ? std::get_if<bool>(&*stored) : nullptr;
    return open == nullptr || *open;
}

WindowPicture pictureOf(const QImage& image) {
    const auto width = static_cast<std::size_t>(image.width());
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(image.constBits());
    return {{pixels, width * static_cast<std::size_t>(image.height())}, width};
}

} // namespace

DrawerWindows::DrawerWindows(Parts parts, const PanelSettings& settings)
    : parts_(parts), settings_(settings), window_(parts.content), tab_(parts.loop),
      clock_([this](double seconds) { return step(seconds); }) {
    tab_.setTheme(PetTheme::named(settings_.themeId));
    connect(&tab_, &QAbstractButton::clicked, this, [this] { toggle(); });
    tab_.onFrame = [this](const QImage& frame) { return parts_.windows.put(tabId(), pictureOf(frame)); };
    // Both windows are made before they are shown, so that they appear with their traits.
    window_.winId();
    tab_.winId();
    window_.windowHandle()->installEventFilter(this);
    tab_.windowHandle()->installEventFilter(this);
    parts_.drawer.setOpen(storedOpen(parts_.preferences));
    place(Motion::jump);
    followScreens();
}

DrawerWindows::~DrawerWindows() {
    clock_.stop();
    window_.windowHandle()->removeEventFilter(this);
    tab_.windowHandle()->removeEventFilter(this);
}

void DrawerWindows::followScreens() {
    const auto jump = [this] { place(Motion::jump); };
    const auto follow = [this, jump](QScreen* screen) {
        connect(screen, &QScreen::availableGeometryChanged, this, jump);
    };
    for (auto* screen : QGuiApplication::screens()) {
        follow(screen);
    }
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [follow, jump](QScreen* screen) {
        follow(screen);
        jump();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, jump);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, jump);
}

WindowId DrawerWindows::drawerId() const {
    return static_cast<WindowId>(window_.internalWinId());
}

WindowId DrawerWindows::tabId() const {
    return static_cast<WindowId>(tab_.internalWinId());
}

panel::Placement DrawerWindows::placement() const {
    const auto* screen = QGuiApplication::primaryScreen();
    const QRectF area = screen != nullptr ? QRectF(screen->availableGeometry()) : QRectF(0, 0, 1280, 720);
    return {qt::rect(area), settings_.panelWidth, settings_.tabPosition};
}

panel::Frames DrawerWindows::frames() const {
    return panel::framesDownwards(placement(), parts_.drawer.isOpen());
}

void DrawerWindows::setSettings(const PanelSettings& settings) {
    const bool tabMoves = settings_.tabPosition != settings.tabPosition;
    settings_ = settings;
    tab_.setTheme(PetTheme::named(settings_.themeId));
    if (tabMoves) {
        setFraction(window_.fraction());
    }
}

void DrawerWindows::toggle() {
    const bool open = parts_.drawer.isOpen();
    if (open && !isSliding() && parts_.windows.isCovered(drawerId(), {tabId()})) {
        parts_.windows.raise(drawerId());
        return;
    }
    parts_.drawer.setOpen(!open);
    parts_.preferences.set(openKey, !open);
    place(Motion::slide);
}

void DrawerWindows::bringForward() {
    if (parts_.drawer.isOpen()) {
        parts_.windows.raise(drawerId());
    } else {
        toggle();
    }
}

void DrawerWindows::takeKeyboard() {
    bringForward();
    forgetWriting(); // from now on it is more than a loan
    window_.setTakesKeyboard(true);
}

void DrawerWindows::setWriting(bool writing) {
    if (writing) {
        lendKeyboard();
    } else if (writing_) {
        // What the user does now may open a menu, which would shut as the keyboard goes.
        keyboardReturn_ = parts_.loop.after(0, [this] { returnKeyboard(); });
    }
}

void DrawerWindows::lendKeyboard() {
    keyboardReturn_.reset();
    if (!window_.takesKeyboard()) {
        writing_ = true;
        lender_ = parts_.windows.activeWindow();
        window_.setTakesKeyboard(true);
    }
}

void DrawerWindows::forgetWriting() {
    keyboardReturn_.reset();
    writing_ = false;
}

void DrawerWindows::returnKeyboard() {
    if (auto* menu = QApplication::activePopupWidget()) {
        menu->installEventFilter(this);
        return;
    }
    // Where the user has gone to another window, the keyboard is there already.
    const bool hasKeyboard = window_.isActiveWindow();
    forgetWriting();
    window_.setTakesKeyboard(false);
    if (hasKeyboard && lender_ && *lender_ != drawerId()) {
        parts_.windows.activate(*lender_);
    }
}

void DrawerWindows::place(Motion motion) {
    const bool open = parts_.drawer.isOpen();
    const QRect drawerFrame = qt::rect(panel::framesDownwards(placement(), true).panel).toRect();
    shapeWindows();
    window_.setGeometry(drawerFrame);
    if (motion == Motion::jump) {
        clock_.stop();
        setFraction(open ? 1 : 0);
        tab_.show();
        finish();
        return;
    }
    attachTab(false);
    if (open && !window_.isVisible()) {
        setFraction(0);
        showDrawer();
    } else if (open) {
        parts_.windows.raise(drawerId());
    }
    slideFrom_ = window_.fraction();
    slideTo_ = open ? 1 : 0;
    slideTime_ = 0;
    clock_.start();
}

bool DrawerWindows::step(double seconds) {
    slideTime_ += seconds;
    const double way = panel::easeInEaseOut(slideTime_ / panel::slideSeconds);
    setFraction(slideFrom_ + (slideTo_ - slideFrom_) * way);
    if (slideTime_ < panel::slideSeconds) {
        return true;
    }
    clock_.stop();
    setFraction(slideTo_);
    finish();
    return false;
}

void DrawerWindows::finish() {
    const bool open = parts_.drawer.isOpen();
    if (open) {
        if (!window_.isVisible()) {
            showDrawer();
        }
    } else {
        hideDrawer();
    }
    attachTab(open);
}

void DrawerWindows::setFraction(double fraction) {
    window_.setFraction(fraction);
    const auto where = placement();
    const auto frames =
        panel::between(panel::framesDownwards(where, false), panel::framesDownwards(where, true), fraction);
    tab_.move(qt::rect(frames.tab).topLeft().toPoint());
}

void DrawerWindows::showDrawer() {
    parts_.windows.makePanel(drawerId(), WindowLevel::normal);
    window_.show();
    parts_.windows.raise(drawerId());
    parts_.drawer.setCovered(false);
    tab_.setCovered(false);
    watchCover(true);
}

void DrawerWindows::hideDrawer() {
    watchCover(false);
    tab_.setCovered(false);
    forgetWriting();
    window_.setTakesKeyboard(false);
    window_.hide();
}

void DrawerWindows::attachTab(bool open) {
    tabAttached_ = open;
    parts_.windows.setOwner(tabId(), open ? std::optional(drawerId()) : std::nullopt);
    applyTraits();
    if (!open) {
        parts_.windows.raise(tabId());
    }
}

void DrawerWindows::applyTraits() {
    parts_.windows.makePanel(tabId(), tabAttached_ ? WindowLevel::normal : WindowLevel::floating);
    if (window_.isVisible()) {
        parts_.windows.makePanel(drawerId(), WindowLevel::normal);
    }
}

void DrawerWindows::shapeWindows() {
    const bool translucent = parts_.windows.hasTranslucency();
    window_.setTranslucency(translucent);
    if (translucent) {
        tab_.clearMask();
    } else {
        const auto shape = edgeShape(QRectF(tab_.rect()), tabRadius);
        tab_.setMask(QRegion(shape.toFillPolygon().toPolygon()));
    }
}

void DrawerWindows::watchCover(bool open) {
    if (!open) {
        coverWatch_.reset();
    } else if (!coverWatch_) {
        coverWatch_ = parts_.windows.whenWindowsChange([this] { updateCovered(); });
    }
}

void DrawerWindows::updateCovered() {
    if (parts_.drawer.isOpen()) {
        parts_.drawer.setCovered(parts_.windows.isCovered(drawerId(), {tabId()}));
        tab_.setCovered(parts_.windows.isCovered(tabId(), {drawerId()}));
    }
}

bool DrawerWindows::eventFilter(QObject* watched, QEvent* event) {
    const auto* window = qobject_cast<QWindow*>(watched);
    if (window == nullptr && event->type() == QEvent::Hide) { // a menu
        watched->removeEventFilter(this);
        setWriting(false);
        return QObject::eventFilter(watched, event);
    }
    // A window manager takes note of these only once the window is on the screen.
    if (event->type() == QEvent::Expose && window != nullptr && window->isExposed() &&
        !watched->property("traitsApplied").toBool()) {
        watched->setProperty("traitsApplied", true);
        applyTraits();
    } else if (event->type() == QEvent::Hide) {
        watched->setProperty("traitsApplied", false);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace mimkins
