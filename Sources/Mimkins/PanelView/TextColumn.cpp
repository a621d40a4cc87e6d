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

double TextColumn::Piece::width() const {
    return std::max(std::ceil(QFontMetricsF(font).horizontalAdvance(words)), least);
}

double TextColumn::separatorWidth(const QFont& font) {
    return 2 * wordGap + std::ceil(QFontMetricsF(font).horizontalAdvance(dot));
}

/// Goes on to the next line if so much doesn't fit, or puts a dot between what is there and what comes.
void TextColumn::separate(const QFont& font, double wanted) {
    const double between = separatorWidth(font);
    if (x_ > 0 && x_ + between + wanted > width_) {
        newLine(font);
    }
    if (x_ > 0) {
        put(CardText::Role::separator, dot, font, x_ + wordGap, between - 2 * wordGap);
        x_ += wordGap;
    }
}

void TextColumn::putPiece(const Piece& piece) {
    const double room = std::min(piece.width(), width_ - x_);
    const QString shown = QFontMetricsF(piece.font).elidedText(piece.words, Qt::ElideRight, room);
    put(piece.role, shown, piece.font, x_, room);
}

void TextColumn::piece(const Piece& piece) {
    separate(piece.font, piece.width());
    putPiece(piece);
}

/// The words on lines of which the first has so much room, and the last keeps so much free at its end.
QStringList TextColumn::brokenWords(const Piece& piece, double firstRoom, double atTheEnd) const {
    const QStringList words = piece.words.split(' ');
    QStringList lines{words.front()};
    double room = firstRoom;
    for (qsizetype index = 1; index < words.size(); ++index) {
        const Piece longer{piece.role, lines.back() + ' ' + words[index], piece.font, 0};
        const double kept = index + 1 == words.size() ? atTheEnd : 0;
        if (longer.width() + kept <= room) {
            lines.back() = longer.words;
        } else {
            lines.append(words[index]);
            room = width_;
        }
    }
    return lines;
}

/// The words begin on the present line if that saves one.
void TextColumn::putWords(const Piece& piece, double atTheEnd) {
    QStringList lines = brokenWords(piece, width_, atTheEnd);
    if (x_ > 0) {
        const double room = width_ - x_ - separatorWidth(piece.font);
        const QStringList beside = brokenWords(piece, room, atTheEnd);
        const Piece firstLine{piece.role, beside.front(), piece.font, 0};
        const bool saves = firstLine.width() <= room && beside.size() <= lines.size();
        separate(piece.font, saves ? 0 : width_);
        lines = saves ? beside : lines;
    }
    for (qsizetype index = 0; index < lines.size(); ++index) {
        if (index > 0) {
            newLine(piece.font);
        }
        putPiece({piece.role, lines[index], piece.font, 0});
    }
}

void TextColumn::pieces(const Piece& first, const Piece& second) {
    const double beside = separatorWidth(second.font) + second.width();
    const Piece lastWord{first.role, first.words.section(' ', -1), first.font, 0};
    if (first.width() + beside <= width_) {
        separate(first.font, first.width() + beside);
        putPiece(first);
    } else {
        putWords(first, lastWord.width() + beside <= width_ ? beside : 0);
    }
    piece(second);
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
