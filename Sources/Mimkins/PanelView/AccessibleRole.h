#pragma once

#include <QAccessible>
#include <QWidget>

namespace mimkins {

/// Tells assistive technology what a widget of our own painting is. To be called while it is made.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace mimkins
