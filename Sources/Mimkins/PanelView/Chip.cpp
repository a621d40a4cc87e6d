#include "PanelView/Chip.h"

#include "Drawing/Contrast.h"
#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Qt/Shapes.h"
#include "Presentation/Accent.h"

#include <QFontMetricsF>
#include <QLinearGradient>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double dotGap = 2;
constexpr double dotsLead = 1;

double dotsWidth(const Chip::Piece& piece) {
    const double gap = piece.side * dotGap / 4.5;
    return dotsLead + piece.dots * piece.side + (piece.dots - 1) * gap;
}

QSizeF sizeOf(const Chip::Piece& piece) {
    if (piece.symbol) {
        return {piece.side, piece.side};
    }
    if (piece.dots > 0) {
        return {dotsWidth(piece), piece.side};
    }
    const QFontMetricsF metrics(piece.font);
    return {std::ceil(metrics.horizontalAdvance(piece.words)), std::ceil(metrics.height())};
}

void drawDots(QPainter& painter, const Chip::Piece& piece, const QRectF& place) {
    painter.setPen(Qt::NoPen);
    double x = place.left() + dotsLead;
    const double y = place.center().y() - piece.side / 2;
    for (int dot = 0; dot < piece.dots; ++dot) {
        painter.setBrush(qt::color(dot < piece.filled ? piece.ink : piece.faint));
        painter.drawEllipse(QRectF(x, y, piece.side, piece.side));
        x += piece.side * (1 + dotGap / 4.5);
    }
}

void drawPiece(QPainter& painter, const Chip::Piece& piece, const QRectF& place) {
    if (piece.symbol) {
        painter.save();
        painter.translate(place.left(), place.center().y() - piece.side / 2);
        {
            PainterCanvas canvas(painter, ColorScheme::dark);
            drawSymbol(GraphicsContext(canvas), *piece.symbol, piece.side, piece.ink);
        }
        painter.restore();
    } else if (piece.dots > 0) {
        drawDots(painter, piece, place);
    } else {
        painter.setFont(piece.font);
        painter.setPen(qt::color(piece.ink));
        painter.drawText(
            place, Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine, piece.words
        );
    }
}

Chip::Piece icon(Symbol symbol, double side, const Color& ink) {
    Chip::Piece piece;
    piece.symbol = symbol;
    piece.side = side;
    piece.ink = ink;
    return piece;
}

Chip::Piece words(const QString& text, const QFont& font, const Color& ink) {
    Chip::Piece piece;
    piece.words = text;
    piece.font = font;
    piece.ink = ink;
    return piece;
}

QFont roundedFont(const CardLook& look, double points) {
    return Typography(FontDesign::rounded, look.typography.scale()).font(points, QFont::Black);
}

} // namespace

QSizeF Chip::size() const {
    double width = 0;
    double height = 0;
    for (const auto& piece : pieces) {
        const QSizeF own = sizeOf(piece);
        width += own.width() + (width > 0 ? spacing : 0);
        height = std::max(height, own.height());
    }
    return {std::ceil(width + 2 * paddingX), std::ceil(height + 2 * paddingY)};
}

Chip Chip::fitted(double width) const {
    Chip chip = *this;
    for (auto& piece : chip.pieces) {
        const double excess = chip.size().width() - width;
        if (excess > 0 && !piece.words.isEmpty()) {
            const QFontMetricsF metrics(piece.font);
            const double room = std::max(metrics.horizontalAdvance(piece.words) - excess - 1, 0.0);
            piece.words = metrics.elidedText(piece.words, Qt::ElideRight, room);
        }
    }
    return chip;
}

void Chip::draw(QPainter& painter, const QRectF& place) const {
    const double height = std::min(size().height(), place.height());
    const QRectF body(place.left(), place.center().y() - height / 2, place.width(), height);
    const double corner = radius.value_or(height / 2);
    if (!ground.colors().empty()) {
        QLinearGradient fill(body.topLeft(), body.topRight());
        for (std::size_t stop = 0; stop < ground.colors().size(); ++stop) {
            fill.setColorAt(ground.location(stop), qt::color(ground.colors()[stop]));
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawPath(roundedShape(body, corner));
    }
    if (outline) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(qt::color(*outline), 1));
        painter.drawPath(roundedShape(body.adjusted(0.5, 0.5, -0.5, -0.5), corner - 0.5));
    }
    double x = body.left() + paddingX;
    for (const auto& piece : pieces) {
        const double width = sizeOf(piece).width();
        drawPiece(painter, piece, {x, body.top(), width, body.height()});
        x += width + spacing;
    }
}

Chip agentChip(const QString& agent, const CardLook& look) {
    const double scale = look.typography.scale();
    Chip chip;
    chip.paddingX = 5 * scale;
    chip.paddingY = 2 * scale;
    chip.radius = 4 * scale;
    chip.ground = Gradient{look.theme->text.faded(0.12)};
    chip.pieces.push_back(words(agent, roundedFont(look, 8), look.theme->text.faded(0.8)));
    return chip;
}

Chip effortChip(const EffortBadge& badge, const CardLook& look) {
    const double scale = look.typography.scale();
    const Color ink = Color::black(0.8);
    std::vector<Color> colors;
    for (const auto& color : badge.gradient.colors()) {
        colors.push_back(color.resolved(look.scheme()));
    }
    Chip chip;
    chip.paddingX = 5 * scale;
    chip.paddingY = 2 * scale;
    chip.spacing = 2 * scale;
    chip.ground = Gradient(std::span<const Color>(colors));
    chip.pieces.push_back(icon(badge.symbol, 9 * scale, ink));
    chip.pieces.push_back(words(qt::text(badge.word), roundedFont(look, 8), ink));
    return chip;
}

Chip pillChip(const SubtasksPill& pill, PillForm form, const Color& tint, const CardLook& look) {
    const double scale = look.typography.scale();
    const Color ink = pill.on ? Color::black(0.8) : look.theme->text.faded(0.8);
    Chip chip;
    chip.paddingX = 7 * scale;
    chip.paddingY = 3 * scale;
    chip.spacing = 3 * scale;
    chip.ground = Gradient{pill.on ? tint : look.theme->text.faded(0.08)};
    if (!pill.on) {
        chip.outline = look.theme->text.faded(0.1);
    }
    chip.pieces.push_back(icon(pill.symbol, 10 * scale, ink));
    if (form == PillForm::full) {
        chip.pieces.push_back(words(SubtasksPill::word, look.typography.font(10, QFont::DemiBold), ink));
    }
    if (pill.count) {
        chip.pieces.push_back(words(qt::text(*pill.count), look.typography.font(10, QFont::ExtraBold), ink));
    }
    return chip;
}

Chip modelChip(const ModelBadge& badge, const CardLook& look) {
    const double scale = look.typography.scale();
    const Color ink = badge.highlight ? Color::named(NamedColor::orange).resolved(look.scheme())
                                      : look.theme->text.faded(0.72);
    Chip chip;
    chip.spacing = 3 * scale;
    if (badge.highlight) {
        chip.paddingX = 5 * scale;
        chip.paddingY = 1.5 * scale;
        chip.radius = 5 * scale;
        chip.ground = Gradient{ink.faded(0.16)};
    }
    chip.pieces.push_back(icon(badge.symbol, 10 * scale, ink));
    if (badge.name) {
        chip.pieces.push_back(words(qt::text(*badge.name), look.typography.font(10, QFont::DemiBold), ink));
    }
    if (badge.pips) {
        Chip::Piece dots;
        dots.dots = ModelBadge::dots;
        dots.filled = *badge.pips;
        dots.side = 4.5 * scale;
        dots.ink = ink;
        dots.faint = look.theme->text.faded(0.18);
        chip.pieces.push_back(dots);
    }
    return chip;
}

Chip summaryChip(Symbol symbol, const QString& text, const CardLook& look) {
    const double scale = look.typography.scale();
    Chip chip;
    chip.paddingX = 10;
    chip.paddingY = 5;
    chip.spacing = 6 * scale;
    chip.radius = 9;
    chip.ground = Gradient{look.theme->text.faded(0.05)};
    chip.pieces.push_back(icon(symbol, 12 * scale, look.theme->subtext));
    chip.pieces.push_back(words(text, look.typography.font(11, QFont::DemiBold), look.theme->subtext));
    return chip;
}

Chip nextUpChip(const CardLook& look) {
    const double scale = look.typography.scale();
    Chip chip;
    chip.paddingX = 6 * scale;
    chip.paddingY = 2 * scale;
    chip.pieces.push_back(words(nextUpTag, roundedFont(look, 9), inkOn(accent(*look.theme), 0.85)));
    return chip;
}

} // namespace mimkins
