#pragma once

#include "Base/Handle.h"
#include "PanelView/Backdrop.h"
#include "Platform/RunLoop.h"

#include <QWidget>

namespace mimkins {

/// What lies behind everything in the drawer. Its moving parts have the widget drawn again where they are,
/// and only while somebody can see it.
class PanelGround {
public:
    /// All outlive this; the theme may change behind the reference, which `themeChanged` then tells.
    PanelGround(QWidget& widget, RunLoop& loop, const PetTheme& theme);

    void draw(QPainter& painter, const QRegion& region);
    void themeChanged();
    /// While paused, what moves stands where it is.
    void setPaused(bool paused);

    const Backdrop& backdrop() const { return backdrop_; }

private:
    Backdrop::Form form() const;
    double now() const;
    void keepTime();

    QWidget& widget_;
    RunLoop& loop_;
    const PetTheme& theme_;
    Backdrop backdrop_;
    bool paused_ = true;
    Handle border_;
    Handle particles_;
};

} // namespace mimkins
