#include "PanelView/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace mimkins {

namespace {

constexpr const char* roleProperty = "accessibleRole";

/// Makes the interfaces of the widgets that say what they are, and leaves all others to Qt.
QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget != nullptr ? widget->property(roleProperty) : QVariant();
    return role.isValid() ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    widget.setProperty(roleProperty, static_cast<int>(role));
}

} // namespace mimkins
