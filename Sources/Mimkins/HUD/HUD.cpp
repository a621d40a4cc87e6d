#include "HUD/HUD.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Scheme.h"
#include "HUD/HUDMotion.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QPainterPath>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double frameSeconds = 1.0 / 60;
/// The corners without translucency are a little rounder than what is drawn, so that nothing shows behind.
constexpr double cutRadius = 17;

QRect visibleFrame() {
    const auto screens = QGuiApplication::screens();
    const auto* screen = screens.isEmpty() ? QGuiApplication::primaryScreen() : screens.front();
    return screen != nullptr ? screen->availableGeometry() : QRect(0, 0, 1280, 720);
}

} // namespace

void HUD::makeView() {
    view_ = std::make_unique<HUDView>();
    // A window of this kind stands above all others, on every desktop, and no window manager gives it the
    // focus.
    view_->setWindowFlags(
        Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus |
        Qt::WindowStaysOnTopHint
    );
    view_->setAttribute(Qt::WA_TranslucentBackground);
    view_->setAttribute(Qt::WA_ShowWithoutActivating);
    view_->setAttribute(Qt::WA_TransparentForMouseEvents);
    view_->setFocusPolicy(Qt::NoFocus);
    view_->setWindowTitle("Mimkins notice");
}

void HUD::placeView() {
    const QSize size = view_->sizeHint();
    const Rect place = hud::frame(qt::rect(QRectF(visibleFrame())), size.width(), size.height());
    view_->setGeometry(
        static_cast<int>(std::lround(place.x)), static_cast<int>(std::lround(place.y)), size.width(),
        size.height()
    );
    if (parts_.windows.hasTranslucency()) {
        view_->clearMask();
        return;
    }
    QPainterPath shape;
    shape.addRoundedRect(view_->row(), cutRadius, cutRadius);
    view_->setMask(QRegion(shape.toFillPolygon().toPolygon()));
}

void HUD::show(const Notice& notice, const PetTheme& theme) {
    if (view_ == nullptr) {
        makeView();
    }
    view_->setContent(notice, theme.resolved(systemScheme()));
    placeView();
    opacity_ = 0;
    view_->setWindowOpacity(opacity_);
    view_->show();
    view_->raise();
    QAccessibleEvent said(view_.get(), QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
    fade(1, hud::fadeInSeconds);
    hideWork_ = parts_.loop.after(hud::stayingSeconds, [this] { fade(0, hud::fadeOutSeconds); });
}

void HUD::fade(double to, double seconds) {
    const double frames = std::round(seconds / frameSeconds);
    fadeTo_ = to;
    fadeStep_ = (to - opacity_) / frames;
    fading_ = parts_.loop.every(seconds / frames, [this] { stepFade(); });
}

void HUD::stepFade() {
    opacity_ += fadeStep_;
    const bool ends = std::abs(fadeTo_ - opacity_) < std::abs(fadeStep_) / 2;
    opacity_ = ends ? fadeTo_ : opacity_;
    view_->setWindowOpacity(opacity_);
    if (ends) {
        fading_.reset();
        if (fadeTo_ == 0) {
            view_->hide();
        }
    }
}

} // namespace mimkins
