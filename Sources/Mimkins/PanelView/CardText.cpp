#include "PanelView/CardText.h"

#include "Drawing/Qt/Conversions.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double projectPoints = 10;
constexpr double titlePoints = 13;
constexpr double smallPoints = 11;
constexpr double lineGap = 3;
constexpr double wordGap = 4;
constexpr double projectSpacing = 0.7;
constexpr int titleLines = 2;

/// Puts words below and beside one another inside the column.
class Setter {
public:
    Setter(CardText& text, double width) : text_(text), width_(width) {}

    /// A line of its own for a whole run.
    void line(CardText::Role role, const QString& words, const QFont& font) {
        newLine(font);
        place(role, words, font, width_);
        x_ = width_;
    }

    /// A piece of a sentence: on the present line if it fits, else on the next. `least` is the room that it
    /// asks for at the least, so that a growing number doesn't break the line each second.
    void piece(CardText::Role role, const QString& words, const QFont& font, double least = 0) {
        const QFontMetricsF metrics(font);
        const double wanted = std::max(std::ceil(metrics.horizontalAdvance(words)), least);
        const QString dot = "·";
        const double dotWidth = std::ceil(metrics.horizontalAdvance(dot));
        if (x_ > 0 && x_ + 2 * wordGap + dotWidth + wanted > width_) {
            newLine(font);
        }
        if (x_ > 0) {
            x_ += wordGap;
            place(CardText::Role::separator, dot, font, dotWidth);
            x_ += dotWidth + wordGap;
        }
        const double room = std::min(wanted, width_ - x_);
        place(role, metrics.elidedText(words, Qt::ElideRight, room), font, room);
        x_ += room;
    }

    void newLine(const QFont& font) {
        y_ += lineHeight_ + (y_ + lineHeight_ > 0 ? gap_ : 0);
        gap_ = lineGap;
        x_ = 0;
        lineHeight_ = std::ceil(QFontMetricsF(font).height());
    }

    /// The next line follows without a gap: it goes on with the same text.
    void closeUp() { gap_ = 0; }

    double bottom() const { return y_ + lineHeight_; }

private:
    void place(CardText::Role role, const QString& words, const QFont& font, double width) {
        text_.runs.push_back({role, words, font, QRectF(x_, y_, width, lineHeight_)});
    }

    CardText& text_;
    double width_;
    double x_ = 0;
    double y_ = 0;
    double lineHeight_ = 0;
    double gap_ = lineGap;
};

void setProject(Setter& setter, const CardRow& row, double width, const Typography& typography) {
    QFont font = typography.font(projectPoints, QFont::ExtraBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, projectSpacing);
    const QString words = QFontMetricsF(font).elidedText(qt::text(row.project), Qt::ElideMiddle, width);
    setter.line(CardText::Role::project, words, font);
}

void setTitle(Setter& setter, const CardRow& row, double width, const Typography& typography) {
    const QFont font = typography.font(titlePoints, QFont::DemiBold);
    const auto lines = fittedLines(qt::text(row.title), font, width, titleLines);
    for (const auto& line : lines) {
        setter.line(CardText::Role::title, line, font);
        if (&line != &lines.last()) {
            setter.closeUp();
        }
    }
}

void setState(Setter& setter, const CardRow& row, const QString& elapsed, const Typography& typography) {
    const QFont plain = typography.font(smallPoints, QFont::Medium);
    setter.newLine(plain);
    if (row.name) {
        setter.piece(CardText::Role::name, qt::text(*row.name), typography.font(smallPoints, QFont::Bold));
    }
    setter.piece(
        CardText::Role::mood, qt::text(row.moodLabel), typography.font(smallPoints, QFont::DemiBold)
    );
    const double least = std::ceil(QFontMetricsF(plain).horizontalAdvance("88m"));
    setter.piece(CardText::Role::elapsed, elapsed, plain, least);
}

} // namespace

CardText setCardText(const CardRow& row, const QString& elapsed, double width, const Typography& typography) {
    CardText text;
    Setter setter(text, width);
    setProject(setter, row, width, typography);
    setTitle(setter, row, width, typography);
    setState(setter, row, elapsed, typography);
    if (row.activity && !row.activity->empty()) {
        const QFont font = typography.font(smallPoints, QFont::Medium);
        for (const auto& line : fittedLines(qt::text(*row.activity), font, width, 1)) {
            setter.line(CardText::Role::activity, line, font);
        }
    }
    text.height = setter.bottom();
    return text;
}

} // namespace mimkins
