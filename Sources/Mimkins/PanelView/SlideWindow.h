#pragma once

#include <QWidget>

namespace mimkins {

/// The drawer's window. Window managers keep windows on the screen, so the window stays at its open place and
/// its content slides; what the content has left can neither be seen nor clicked.
class SlideWindow final : public QWidget {
public:
    /// Takes the content.
    explicit SlideWindow(QWidget* content);

    /// Puts the content so far out, from 0 (beyond the screen's edge) to 1.
    void setFraction(double fraction);

    double fraction() const { return fraction_; }

    /// Without translucency the rounded corners are cut out of the window.
    void setTranslucency(bool translucent);

    /// Lets the window have the keyboard until another takes it, or keeps it away from it.
    void setTakesKeyboard(bool takes);

    bool takesKeyboard() const { return takesKeyboard_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void placeContent();

    QWidget* content_;
    double fraction_ = 1;
    bool translucent_ = true;
    bool takesKeyboard_ = false;
};

} // namespace mimkins
