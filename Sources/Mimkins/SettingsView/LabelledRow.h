#pragma once

#include "SettingsView/Words.h"

#include <QWidget>

#include <functional>
#include <string_view>

namespace mimkins {

/// A label, with a hint below it where it needs one, and the control that it is about.
class LabelledRow final : public QWidget {
public:
    enum class Place {
        beside,   ///< right of a label column that all rows share; below it where it doesn't fit
        trailing, ///< at the far end, with the rest for the label
        below,
    };

    struct Parts {
        std::string_view label;
        std::string_view hint;
        QWidget* control; ///< taken over; its sizes say what it needs
        Place place = Place::beside;
        /// How much of the control's sides is room for its outline alone; it lies outside of the row's
        /// margins.
        int bleed = 0;
    };

    explicit LabelledRow(const Parts& parts);

    /// Called when the label is pressed.
    std::function<void()> onPress;

    /// The control has been told its look before.
    void setLook(const CardLook& look);

    const Words& label() const { return *label_; }

    /// Null where the label says it all.
    const Words* hint() const { return hint_; }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Geometry {
        QRect label;
        QRect hint;
        QRect control;
        int height = 0;
    };

    Geometry geometryAt(int width) const;
    Geometry besides(int labelWidth, int controlLeft, int controlWidth) const;
    Geometry below(int width) const;
    int wordsHeight(int width) const;
    int controlHeight(int width) const;
    void arrange();

    Words* label_;
    Words* hint_ = nullptr;
    QWidget* control_;
    Place place_;
    int bleed_;
    int column_ = 104; ///< width of the label column
};

} // namespace mimkins
