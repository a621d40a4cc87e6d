#pragma once

#include "Theme/PetTheme.h"

#include <QFont>
#include <QString>
#include <QStringList>

namespace mimkins {

/// The fonts of the drawer. Sizes are given in points of the design and follow the size of the user's own
/// font where that is larger than usual.
class Typography {
public:
    /// The height in pixels of the font that desktops set when the user hasn't changed it.
    static constexpr double usualPixels = 14.7;

    /// Follows the application's font.
    explicit Typography(FontDesign design);
    Typography(FontDesign design, double scale);

    QFont font(double points, QFont::Weight weight = QFont::Normal) const;

    /// The same size in the system's own design, whatever that of the theme.
    QFont systemFont(double points, QFont::Weight weight = QFont::Normal) const;

    /// How much larger than designed everything is that holds text.
    double scale() const { return scale_; }

private:
    QString family_;
    double scale_;
};

/// The lines of a text that fits the width: at most so many, the last one shortened by an ellipsis when more
/// would be needed. None for an empty text.
QStringList fittedLines(const QString& text, const QFont& font, double width, int mostLines);

} // namespace mimkins
