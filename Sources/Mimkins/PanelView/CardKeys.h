#pragma once

#include <QWidget>

#include <cstddef>
#include <optional>
#include <vector>

namespace mimkins {

/// Which of `count` cards a key leads to, from the one that has the focus: Up and Down to its neighbours,
/// Home and End to the ends. Without a focused card Down leads to the first and Up to the last. Nothing for
/// other keys, and without cards.
std::optional<std::size_t> cardAfterKey(int key, std::optional<std::size_t> focused, std::size_t count);

/// Lets Tab go through these in their order.
void chainTabOrder(const std::vector<QWidget*>& widgets);

/// True if the focus is in the widget or in one that it holds.
bool holdsFocus(const QWidget& widget);

} // namespace mimkins
