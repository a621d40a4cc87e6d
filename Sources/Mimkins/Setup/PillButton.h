#pragma once

#include "Drawing/Symbols.h"
#include "PanelView/CardLook.h"

#include <QAbstractButton>

#include <optional>

namespace mimkins {

/// A button in the shape of a capsule, in the colours of the theme.
class PillButton final : public QAbstractButton {
public:
    enum class Kind {
        primary, ///< filled: what the screen is there for
        small,   ///< outlined
        plain,   ///< words alone
        flush,   ///< words alone, in line with what stands above and below
    };

    /// `plainPoints` is the size of a plain button's words; the others have a size of their own.
    explicit PillButton(Kind kind, double plainPoints = 12);

    Kind kind() const { return kind_; }

    void setLook(const CardLook& look);
    void setWords(const QString& words);
    /// A picture before the words.
    void setSymbol(std::optional<Symbol> symbol);

    /// The size that it takes where there is only so much room in width: in one line if that fits.
    QSize sizeWithin(int width) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Around the capsule, for the outline of the one that has the keyboard.
    static constexpr int ringRoom = 3;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What depends on the kind.
    struct Style {
        QFont font;
        Color ink;
        Color fill;
        Color stroke;
        double paddingX = 0;
        double paddingY = 0;
        /// Laid over the fill while the pointer is on it, and twice while it is pressed.
        Color lift;
    };

    Style style(const CardLook& look) const;
    double symbolRoom() const;
    QStringList linesWithin(double width) const;
    void drawWords(QPainter& painter, const QRectF& capsule) const;

    Kind kind_;
    double plainPoints_;
    std::optional<Symbol> symbol_;
    Style style_;
    Color ring_;
    ColorScheme scheme_ = ColorScheme::dark;
};

} // namespace mimkins
