#include "App/StatusPicture.h"

#include "AppIcon/AppIcon.h"
#include "Base/Text.h"
#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "Theme/PetTheme.h"

#include <QFontMetricsF>
#include <QIconEngine>
#include <QPaintDevice>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <utility>

namespace mimkins {

namespace {

/// Trays ask for about these many pixels.
constexpr std::array pictureSides{16, 22, 24, 32, 48, 64};

void drawCount(QPainter& painter, const QString& words) {
    QFont font = painter.font();
    font.setPixelSize(9);
    font.setBold(true);
    painter.setFont(font);
    const double width = std::max(QFontMetricsF(font).horizontalAdvance(words) + 4, 10.0);
    const QRectF badge(app_icon::side - width, app_icon::side - 10, width, 10);
    painter.setPen(Qt::NoPen);
    painter.setBrush(qt::color(PetTheme::nightSky().waiting));
    painter.drawRoundedRect(badge, 4.5, 4.5);
    painter.setPen(qt::color(Color::black(0.85)));
    painter.drawText(badge, Qt::AlignCenter, words);
}

QPixmap picture(int side, const QString& words) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / app_icon::side, side / app_icon::side);
    const auto path = appIconPath({0, 0, app_icon::side, app_icon::side});
    // Light with a dark rim: the colour of the tray behind it isn't known.
    painter.strokePath(path, QPen(qt::color(Color::black(0.45)), 1));
    painter.fillPath(path, qt::color(Color::grey(0.96)));
    if (!words.isEmpty()) {
        drawCount(painter, words);
    }
    return pixmap;
}

/// Draws a size when a tray asks for it, and keeps it: most trays want a single one, and none is wanted where
/// there is no tray.
class StatusPictureEngine final : public QIconEngine {
public:
    explicit StatusPictureEngine(QString words) : words_(std::move(words)) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
        const int side = std::max(std::min(size.width(), size.height()), 1);
        auto& kept = pictures_[side];
        if (kept.isNull()) {
            kept = picture(side, words_);
        }
        return kept;
    }

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        const QPixmap drawn = pixmap((QSizeF(area.size()) * ratio).toSize(), mode, state);
        QRectF place({}, QSizeF(drawn.size()) / ratio);
        place.moveCenter(QRectF(area).center());
        painter->drawPixmap(place, drawn, QRectF(drawn.rect()));
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        QList<QSize> sizes;
        for (const int side : pictureSides) {
            sizes.append({side, side});
        }
        return sizes;
    }

    QIconEngine* clone() const override { return new StatusPictureEngine(*this); }

private:
    QString words_;
    std::map<int, QPixmap> pictures_; ///< by side
};

} // namespace

QIcon statusPicture(const std::string& title) {
    const QString words = qt::text(title).trimmed();
    return QIcon(new StatusPictureEngine(words.size() > 2 ? QString("99") : words));
}

QIcon StatusPictures::of(const std::string& title) {
    const auto known = kept_.find(title);
    if (known != kept_.end()) {
        return known->second;
    }
    if (kept_.size() >= most) {
        kept_.clear();
    }
    return kept_.emplace(title, statusPicture(title)).first->second;
}

void fillMenu(
    QMenu& menu, const std::vector<status_item::MenuRow>& rows, const std::vector<MenuHandler>& handlers
) {
    for (const auto& row : rows) {
        if (row.isSeparator()) {
            menu.addSeparator();
            continue;
        }
        auto* item = menu.addAction(qt::text(row.text));
        item->setCheckable(row.checked);
        item->setChecked(row.checked);
        if (!row.keyEquivalent.empty()) {
            item->setShortcut(QKeySequence("Ctrl+" + qt::text(row.keyEquivalent)));
        }
        const auto handler =
            std::find_if(handlers.begin(), handlers.end(), [&row](const MenuHandler& candidate) {
                return candidate.action == row.action;
            });
        item->setEnabled(handler != handlers.end());
        if (handler != handlers.end()) {
            QObject::connect(item, &QAction::triggered, item, handler->run);
        }
    }
}

} // namespace mimkins
