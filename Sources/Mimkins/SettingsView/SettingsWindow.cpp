#include "SettingsView/SettingsWindow.h"

#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Qt/Scheme.h"
#include "Presentation/SessionPet.h"
#include "Theme/ThemeDrawing.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace mimkins {

namespace {

constexpr QSize usualSize{380, 720};
constexpr QSize leastSize{280, 240};

} // namespace

SettingsWindow::SettingsWindow(const SettingsParts& parts)
    : settings_(parts.settings), theme_(PetTheme::named(settings_.themeId()).resolved(systemScheme())),
      view_(new SettingsView(parts, look())) {
    setWindowTitle("Mimkins Settings");
    setMinimumSize(leastSize);
    resize(usualSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(view_);
    changed_ = settings_.changed().connect([this](std::string_view key) { followSettings(key); });
}

SettingsWindow::~SettingsWindow() {
    changed_.disconnect();
}

CardLook SettingsWindow::look() const {
    PetMotion motion;
    motion.shuffle = settings_.petShuffle();
    return {&theme_, Typography(theme_.font), settings_.petPoints(), petLook(theme_, motion)};
}

void SettingsWindow::followSettings(std::string_view key) {
    if (key != settings_.themeId.key() && key != settings_.shuffle.key()) {
        return;
    }
    theme_ = PetTheme::named(settings_.themeId()).resolved(systemScheme());
    view_->setLook(look());
    ground_ = {};
    update();
}

void SettingsWindow::bringForward() {
    show();
    raise();
    activateWindow();
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void SettingsWindow::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    if (ground_.size() != size() * ratio) {
        ground_ = QPixmap(size() * ratio);
        ground_.setDevicePixelRatio(ratio);
        // A theme without a sky is glass, which lies on the colour of windows here.
        ground_.fill(palette().color(QPalette::Window));
        QPainter painter(&ground_);
        const ColorScheme scheme = theme_.schemeUnder(systemScheme());
        PainterCanvas canvas(painter, scheme);
        GraphicsContext context(canvas);
        const Size area{static_cast<double>(width()), static_cast<double>(height())};
        drawSky(context, theme_, scheme, area);
        drawTexture(context, theme_.texture, area);
    }
    QPainter(this).drawPixmap(0, 0, ground_);
}

} // namespace mimkins
