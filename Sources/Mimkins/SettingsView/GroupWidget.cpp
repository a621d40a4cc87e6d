#include "SettingsView/GroupWidget.h"

#include <QAccessibleWidget>

namespace mimkins {

namespace {

QAccessibleInterface* groupInterface(const QString&, QObject* object) {
    auto* group = dynamic_cast<GroupWidget*>(object);
    return group != nullptr ? new QAccessibleWidget(group, QAccessible::Grouping) : nullptr;
}

} // namespace

GroupWidget::GroupWidget() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(groupInterface);
        return true;
    }();
}

} // namespace mimkins
