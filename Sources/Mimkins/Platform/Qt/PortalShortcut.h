#pragma once

#include "Platform/HotKeys.h"

#include <QDBusArgument>
#include <QList>
#include <QString>
#include <QVariantMap>

namespace mimkins {

/// A shortcut as the portal for global shortcuts has it.
struct PortalShortcut {
    QString id;
    QVariantMap options; ///< "description", and the wish "preferred_trigger"
};

using PortalShortcuts = QList<PortalShortcut>;

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

/// Lets such lists go over a bus. Harmless when called again.
void registerPortalShortcuts();

/// Keys as the portal takes them, such as "ALT+LOGO+p".
QString portalTrigger(const KeyCombination& keys);

} // namespace mimkins
