#include "PanelView/CardText.h"

#include "Drawing/Contrast.h"
#include "Drawing/Qt/Conversions.h"
#include "PanelView/TextColumn.h"
#include "Presentation/MoodTint.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double projectPoints = 10;
constexpr double titlePoints = 13;
constexpr double smallPoints = 11;
constexpr double headerGap = 6;
constexpr double projectSpacing = 0.7;
constexpr int titleLines = 2;
/// The room that a project asks for at the least beside badges, in heights of its font.
constexpr double leastProject = 6;

using Badge = CardText::Badge;
using Role = CardText::Role;

struct HeaderItem {
    Badge badge;
    Chip chip;
};

std::vector<HeaderItem> headerItems(const CardRow& row, PillForm form, const CardLook& look) {
    std::vector<HeaderItem> items;
    if (row.agent) {
        items.push_back({Badge::agent, agentChip(qt::text(*row.agent), look)});
    }
    if (row.effort) {
        items.push_back({Badge::effort, effortChip(*row.effort, look)});
    }
    if (row.pill) {
        items.push_back({Badge::pill, pillChip(*row.pill, form, tint(*look.theme, row.mood), look)});
    }
    return items;
}

double widthOf(const std::vector<HeaderItem>& items) {
    double width = 0;
    for (const auto& item : items) {
        width += headerGap + item.chip.size().width();
    }
    return width;
}

double heightOf(const std::vector<HeaderItem>& items) {
    double height = 0;
    for (const auto& item : items) {
        height = std::max(height, item.chip.size().height());
    }
    return height;
}

QFont projectFont(const CardLook& look) {
    QFont font = look.typography.font(projectPoints, QFont::ExtraBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, projectSpacing);
    return font;
}

/// Badges on lines of their own, as many on each as there is room for.
void flow(TextColumn& column, const std::vector<HeaderItem>& items, double width) {
    double x = width;
    for (const auto& item : items) {
        const double wanted = item.chip.size().width();
        if (x + wanted > width) {
            column.newLine(heightOf(items));
            x = 0;
        }
        column.put(item.badge, item.chip, x);
        x += wanted + headerGap;
    }
}

/// The project and, beside it, the badges. `width` may be less than the column's.
void setHeader(TextColumn& column, const CardRow& row, double width, const CardLook& look) {
    const QFont font = projectFont(look);
    const QFontMetricsF metrics(font);
    const QString project = qt::text(row.project);
    const double wanted = std::ceil(metrics.horizontalAdvance(project)) + 1;
    auto items = headerItems(row, PillForm::full, look);
    if (wanted + widthOf(items) > width) {
        items = headerItems(row, PillForm::compact, look);
    }
    const double beside = width - widthOf(items);
    const bool oneLine = beside >= std::min(wanted, leastProject * metrics.height());
    const double room = std::min(wanted, oneLine ? beside : width);
    column.newLine(std::max(metrics.height(), oneLine ? heightOf(items) : 0));
    column.put(Role::project, metrics.elidedText(project, Qt::ElideMiddle, room), font, 0, room);
    if (!oneLine) {
        flow(column, items, width);
        return;
    }
    double x = room;
    for (const auto& item : items) {
        column.put(item.badge, item.chip, x + headerGap);
        x += headerGap + item.chip.size().width();
    }
}

/// The width that the mark in the corner leaves to the header.
double headerWidth(const CardRow& row, double width, const CardLook& look) {
    constexpr double cornerShare = 4; // the mark reaches into the padding, and something stays between
    const double left = row.highlighted ? nextUpChip(look).size().width() - cornerShare : 0;
    return std::max(width - left, width / 2);
}

using Piece = TextColumn::Piece;

double leastElapsed(const QFont& font) {
    return std::ceil(QFontMetricsF(font).horizontalAdvance("88m"));
}

Piece elapsedPiece(const QString& elapsed, const QFont& font) {
    return {Role::elapsed, elapsed, font, leastElapsed(font)};
}

void setState(TextColumn& column, const CardRow& row, const QString& elapsed, const Typography& typography) {
    const QFont plain = typography.font(smallPoints, QFont::Medium);
    const Piece time = elapsedPiece(elapsed, plain);
    column.newLine(plain);
    if (row.name) {
        column.piece({Role::name, qt::text(*row.name), typography.font(smallPoints, QFont::Bold)});
    }
    column.pieces({Role::mood, qt::text(row.moodLabel), typography.font(smallPoints, QFont::DemiBold)}, time);
}

/// The colour of a state for words: on a light card some are too pale to be read, and take a little ink.
Color stateInk(const PetTheme& theme, const Color& state) {
    if (theme.scheme != ColorScheme::light) {
        return state;
    }
    constexpr double card = 0.95; // about as light as the cards of light themes
    return readable(state, {Color::grey(card), theme.text, 3});
}

QColor runColor(Role role, const PetTheme& theme, const Color& state) {
    switch (role) {
    case Role::project:
    case Role::mood:
        return qt::color(stateInk(theme, state));
    case Role::title:
        return qt::color(theme.text);
    case Role::name:
        return qt::color(theme.text.faded(0.8));
    case Role::separator:
    case Role::elapsed:
    case Role::activity:
        break;
    }
    return qt::color(theme.subtext);
}

void drawRun(QPainter& painter, const CardText::Run& run, QPointF topLeft, const QColor& ink) {
    painter.setFont(run.font);
    painter.setPen(ink);
    painter.drawText(
        run.rect.translated(topLeft),
        Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine, run.text
    );
}

} // namespace

const CardText::PlacedChip* CardText::find(Badge badge) const {
    const auto found = std::find_if(chips.begin(), chips.end(), [badge](const PlacedChip& placed) {
        return placed.badge == badge;
    });
    return found != chips.end() ? &*found : nullptr;
}

const CardText::Run* CardText::find(Role role) const {
    const auto found =
        std::find_if(runs.begin(), runs.end(), [role](const Run& run) { return run.role == role; });
    return found != runs.end() ? &*found : nullptr;
}

bool replaceElapsed(CardText& text, const QString& elapsed) {
    const auto run = std::find_if(text.runs.begin(), text.runs.end(), [](const CardText::Run& candidate) {
        return candidate.role == Role::elapsed;
    });
    // Neither the present time nor the new one may ask for more than the room that every time has.
    if (run == text.runs.end() || run->rect.width() != leastElapsed(run->font) ||
        QFontMetricsF(run->font).horizontalAdvance(elapsed) > run->rect.width()) {
        return false;
    }
    run->text = elapsed;
    return true;
}

CardText setCardText(const CardRow& row, const QString& elapsed, double width, const CardLook& look) {
    const Typography& typography = look.typography;
    CardText text;
    TextColumn column(text, width);
    setHeader(column, row, headerWidth(row, width, look), look);
    column.lines(Role::title, qt::text(row.title), typography.font(titlePoints, QFont::DemiBold), titleLines);
    setState(column, row, elapsed, typography);
    if (row.model) {
        column.badgeLine(Badge::model, modelChip(*row.model, look));
    }
    if (row.activity) {
        column.lines(Role::activity, qt::text(*row.activity), typography.font(smallPoints, QFont::Medium), 1);
    }
    text.height = column.bottom();
    return text;
}

CardText setSubtaskText(const SubtaskRow& row, const QString& elapsed, double width, const CardLook& look) {
    constexpr double descriptionPoints = 12;
    constexpr double detailPoints = 10;
    const Typography& typography = look.typography;
    const QFont plain = typography.font(detailPoints, QFont::Medium);
    CardText text;
    TextColumn column(text, width);
    const QFont bold = typography.font(descriptionPoints, QFont::DemiBold);
    column.lines(Role::title, qt::text(row.description), bold, titleLines);
    column.newLine(plain);
    const Piece time = elapsedPiece(elapsed, plain);
    column.pieces(
        {Role::mood, qt::text(row.stateWord), typography.font(detailPoints, QFont::DemiBold)}, time
    );
    if (row.badges.plain) {
        column.badgePiece(Badge::model, modelChip(*row.badges.plain, look), plain);
    }
    if (row.badges.highlighted) {
        column.badgeLine(Badge::model, modelChip(*row.badges.highlighted, look));
    }
    if (row.activity) {
        column.lines(Role::activity, qt::text(*row.activity), plain, 1);
    }
    text.height = column.bottom();
    return text;
}

void drawCardText(
    QPainter& painter, const CardText& text, QPointF topLeft, const PetTheme& theme, const Color& state
) {
    for (const auto& run : text.runs) {
        drawRun(painter, run, topLeft, runColor(run.role, theme, state));
    }
    for (const auto& placed : text.chips) {
        if (placed.badge != CardText::Badge::pill) {
            placed.chip.draw(painter, placed.rect.translated(topLeft));
        }
    }
}

void drawElapsed(QPainter& painter, const CardText& text, QPointF topLeft, const PetTheme& theme) {
    if (const auto* run = text.find(Role::elapsed)) {
        drawRun(painter, *run, topLeft, qt::color(theme.subtext));
    }
}

} // namespace mimkins
