#include "PanelView/TextColumn.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double lineGap = 3;
constexpr double wordGap = 4;
constexpr const char* dot = "·";

} // namespace

void TextColumn::put(CardText::Role role, const QString& words, const QFont& font, double x, double width) {
    text_.runs.push_back({role, words, font, QRectF(x, y_, width, lineHeight_)});
    x_ = x + width;
}

void TextColumn::put(CardText::Badge badge, const Chip& chip, double x) {
    const Chip shown = chip.fitted(width_ - x);
    const double width = std::min(shown.size().width(), width_ - x);
    text_.chips.push_back({badge, shown, QRectF(x, y_, width, lineHeight_)});
    x_ = x + width;
}

void TextColumn::newLine(double height) {
    y_ += lineHeight_ + (y_ + lineHeight_ > 0 ? gap_ : 0);
    gap_ = lineGap;
    x_ = 0;
    lineHeight_ = std::ceil(height);
}

void TextColumn::newLine(const QFont& font) {
    newLine(QFontMetricsF(font).height());
}

void TextColumn::line(CardText::Role role, const QString& words, const QFont& font) {
    newLine(font);
    put(role, words, font, 0, width_);
}

void TextColumn::lines(CardText::Role role, const QString& words, const QFont& font, int mostLines) {
    for (const auto& part : fittedLines(words, font, width_, mostLines)) {
        line(role, part, font);
        gap_ = 0; // the next line goes on with the same text
    }
    gap_ = lineGap;
}

/// Goes on to the next line if so much doesn't fit, or puts a dot between what is there and what comes.
void TextColumn::separate(const QFont& font, double wanted) {
    const double dotWidth = std::ceil(QFontMetricsF(font).horizontalAdvance(dot));
    if (x_ > 0 && x_ + 2 * wordGap + dotWidth + wanted > width_) {
        newLine(font);
    }
    if (x_ > 0) {
        put(CardText::Role::separator, dot, font, x_ + wordGap, dotWidth);
        x_ += wordGap;
    }
}

void TextColumn::piece(CardText::Role role, const QString& words, const QFont& font, double least) {
    const QFontMetricsF metrics(font);
    const double wanted = std::max(std::ceil(metrics.horizontalAdvance(words)), least);
    separate(font, wanted);
    const double room = std::min(wanted, width_ - x_);
    put(role, metrics.elidedText(words, Qt::ElideRight, room), font, x_, room);
}

void TextColumn::badgePiece(CardText::Badge badge, const Chip& chip, const QFont& font) {
    separate(font, chip.size().width());
    put(badge, chip, x_);
}

void TextColumn::badgeLine(CardText::Badge badge, const Chip& chip) {
    newLine(chip.size().height());
    put(badge, chip, 0);
}

} // namespace mimkins
