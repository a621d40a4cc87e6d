#pragma once

#include "PanelView/CardText.h"

namespace mimkins {

/// Puts words and badges below and beside one another inside a column.
class TextColumn {
public:
    TextColumn(CardText& text, double width) : text_(text), width_(width) {}

    /// A line of its own for a whole run.
    void line(CardText::Role role, const QString& words, const QFont& font);

    /// The words on at most so many lines.
    void lines(CardText::Role role, const QString& words, const QFont& font, int mostLines);

    /// A piece of a sentence.
    struct Piece {
        CardText::Role role = CardText::Role::title;
        QString words;
        QFont font;
        /// The room that it asks for at the least, so that a growing number doesn't break the line each
        /// second.
        double least = 0;

        double width() const;
    };

    /// A piece on the present line if it fits there, else on the next.
    void piece(const Piece& piece);

    /// Two pieces of which the second doesn't stand alone: it follows the first on the same line or, where no
    /// line has room for both, the first breaks between its words and the second follows the last of them.
    void pieces(const Piece& first, const Piece& second);

    /// A badge as the next piece of a sentence in this font.
    void badgePiece(CardText::Badge badge, const Chip& chip, const QFont& font);

    /// A line of its own for a badge.
    void badgeLine(CardText::Badge badge, const Chip& chip);

    void newLine(const QFont& font);
    void newLine(double height);

    /// Words in the present line, from this place on.
    void put(CardText::Role role, const QString& words, const QFont& font, double x, double width);
    /// A badge in the present line, from this place on.
    void put(CardText::Badge badge, const Chip& chip, double x);

    double width() const { return width_; }

    double bottom() const { return y_ + lineHeight_; }

private:
    void separate(const QFont& font, double wanted);
    /// Puts down what there is room for, on the present line.
    void putPiece(const Piece& piece);
    void putWords(const Piece& piece, double atTheEnd);
    QStringList brokenWords(const Piece& piece, double firstRoom, double atTheEnd) const;
    static double separatorWidth(const QFont& font);

    CardText& text_;
    double width_;
    double x_ = 0;
    double y_ = 0;
    double lineHeight_ = 0;
    double gap_ = 3;
};

} // namespace mimkins
