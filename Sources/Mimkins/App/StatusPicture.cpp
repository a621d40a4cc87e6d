#include "App/StatusPicture.h"

#include "AppIcon/AppIcon.h"
#include "Base/Text.h"
#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "Theme/PetTheme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

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

} // namespace

QIcon statusPicture(const std::string& title) {
    const QString words = qt::text(title).trimmed();
    QIcon icon;
    for (const int side : pictureSides) {
        icon.addPixmap(picture(side, words.size() > 2 ? QString("99") : words));
    }
    return icon;
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
