#include "PanelView/Typography.h"

#include "Drawing/Qt/Fonts.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

double userScale() {
    return std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / Typography::usualPixels);
}

QString lastLine(const QString& rest, const QFont& font, double width) {
    return QFontMetricsF(font).elidedText(rest, Qt::ElideRight, width);
}

} // namespace

Typography::Typography(FontDesign design) : Typography(design, userScale()) {}

Typography::Typography(FontDesign design, double scale) : family_(fontFamily(design)), scale_(scale) {}

QFont Typography::font(double points, QFont::Weight weight) const {
    QFont font(family_);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(points * scale_))));
    font.setWeight(weight);
    return font;
}

QFont Typography::systemFont(double points, QFont::Weight weight) const {
    return Typography(FontDesign::standard, scale_).font(points, weight);
}

QStringList fittedLines(const QString& text, const QFont& font, double width, int mostLines) {
    QStringList lines;
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere); // a long word goes on in the next line
    layout.setTextOption(option);
    layout.beginLayout();
    while (lines.size() < mostLines) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLineWidth(width);
        const int start = line.textStart();
        const bool isLast = lines.size() + 1 == mostLines;
        const QString words = isLast ? text.mid(start) : text.mid(start, line.textLength());
        lines.append(lastLine(words.trimmed(), font, width));
    }
    layout.endLayout();
    return lines;
}

} // namespace mimkins
