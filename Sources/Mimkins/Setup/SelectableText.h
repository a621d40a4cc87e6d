#pragma once

#include "PanelView/CardLook.h"

#include <QTextEdit>

namespace mimkins {

/// Words that can be selected and copied, by the mouse or the keyboard, but not changed. They break anywhere
/// rather than run out of their width.
class SelectableText final : public QTextEdit {
public:
    explicit SelectableText(double points);

    void setLook(const CardLook& look);
    void setWords(const QString& words);

    QString words() const { return toPlainText(); }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double points_;
    QColor ring_;
};

} // namespace mimkins
