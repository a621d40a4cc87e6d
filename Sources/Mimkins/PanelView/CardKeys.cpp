#include "PanelView/CardKeys.h"

#include <algorithm>

namespace mimkins {

std::optional<std::size_t> cardAfterKey(int key, std::optional<std::size_t> focused, std::size_t count) {
    if (count == 0) {
        return std::nullopt;
    }
    const std::size_t last = count - 1;
    switch (key) {
    case Qt::Key_Down:
        return focused ? std::min(*focused + 1, last) : 0;
    case Qt::Key_Up:
        return focused ? *focused - std::min<std::size_t>(*focused, 1) : last;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return std::nullopt;
    }
}

void chainTabOrder(const std::vector<QWidget*>& widgets) {
    for (std::size_t index = 1; index < widgets.size(); ++index) {
        QWidget::setTabOrder(widgets[index - 1], widgets[index]);
    }
}

bool holdsFocus(const QWidget& widget) {
    const QWidget* focused = widget.window()->focusWidget();
    return focused != nullptr && (focused == &widget || widget.isAncestorOf(focused));
}

} // namespace mimkins
