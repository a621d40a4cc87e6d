#include "Drawing/Qt/QtGlyphOutlines.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Fonts.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPainterPathStroker>

namespace mimkins {

namespace {

/// Fonts come in sizes for whole pixels, hinted for them; taken large, the glyphs keep their shape at every
/// size.
constexpr int takenAt = 128;

/// A family without a heavy cut is made heavier by an outline of so much of its size.
constexpr double emboldening = 0.07;

QPainterPath glyphs(const TextRun& text) {
    QFont font = fontOf(text.design, text.weight);
    font.setPixelSize(takenAt);
    const QString characters = qt::text(text.text);
    const QFontMetricsF metrics(font);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addText(
        -metrics.horizontalAdvance(characters) / 2, (metrics.ascent() - metrics.descent()) / 2, font,
        characters
    );
    if (text.weight >= FontWeight::heavy && QFontInfo(font).weight() < QFont::ExtraBold) {
        QPainterPathStroker stroker;
        stroker.setWidth(emboldening * takenAt);
        stroker.setJoinStyle(Qt::RoundJoin);
        path = path.united(stroker.createStroke(path));
    }
    return path;
}

Path fromPainterPath(const QPainterPath& source, double scale) {
    Path path;
    const auto at = [&](int index) {
        const auto element = source.elementAt(index);
        return Point{element.x * scale, element.y * scale};
    };
    for (int index = 0; index < source.elementCount(); ++index) {
        const auto element = source.elementAt(index);
        if (element.isMoveTo()) {
            path.move(at(index));
        } else if (element.isLineTo()) {
            path.addLine(at(index));
        } else if (element.isCurveTo() && index + 2 < source.elementCount()) {
            path.addCurve(at(index + 2), at(index), at(index + 1));
            index += 2;
        }
    }
    return path;
}

} // namespace

const Path& QtGlyphOutlines::outline(const TextRun& text) {
    const auto found = kept_.find(KeyView(text.text, text.weight, text.design));
    if (found != kept_.end()) {
        return found->second;
    }
    return kept_
        .emplace(
            Key(std::string(text.text), text.weight, text.design),
            fromPainterPath(glyphs(text), 1.0 / takenAt)
        )
        .first->second;
}

QtGlyphOutlines& QtGlyphOutlines::shared() {
    static QtGlyphOutlines all;
    return all;
}

} // namespace mimkins
