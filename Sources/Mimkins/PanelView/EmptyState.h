#pragma once

#include "PanelView/Typography.h"

#include <QWidget>

namespace mimkins {

/// What stands in the drawer while no session is out.
class EmptyState final : public QWidget {
public:
    EmptyState();

    void setLook(const PetTheme& theme, const Typography& typography);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PetTheme* theme_ = nullptr;
};

} // namespace mimkins
