#pragma once

#include "PanelView/CardLook.h"

#include <QPlainTextEdit>
#include <QWidget>

#include <functional>

namespace mimkins {

/// A field for a short text, which grows from two lines to four with what stands in it and scrolls from there
/// on.
class TextArea final : public QWidget {
public:
    TextArea();

    /// Called after each of the user's changes.
    std::function<void(const QString&)> onChange;
    /// Called when the user presses into the field to write, and when they leave it other than by Tab.
    std::function<void(bool)> onWriting;
    /// Called when the field needs another height.
    std::function<void()> onHeight;

    /// Shows a text. What the user is writing stays as it is if it says the same.
    void setText(const QString& text);
    void setPlaceholder(const QString& words);
    void setWords(const QString& name, const QString& description);
    void setLook(const CardLook& look);

    QPlainTextEdit& edit() { return *edit_; }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int linesAt(int width) const;
    void follow();

    QPlainTextEdit* edit_;
    CardLook look_;
    int height_ = 0;
    bool showing_ = false; ///< a text that isn't the user's
};

} // namespace mimkins
