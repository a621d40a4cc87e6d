#include "Platform/Qt/PortalShortcut.h"

#include <QDBusMetaType>
#include <QStringList>

namespace mimkins {

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
    argument.beginStructure();
    argument << shortcut.id << shortcut.options;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.options;
    argument.endStructure();
    return argument;
}

void registerPortalShortcuts() {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<PortalShortcuts>();
}

QString portalTrigger(const KeyCombination& keys) {
    QStringList parts;
    if (keys.control) {
        parts.append("CTRL");
    }
    if (keys.option) {
        parts.append("ALT");
    }
    if (keys.command) {
        parts.append("LOGO");
    }
    parts.append(keys.key == KeyCombination::Key::space ? "space" : "p");
    return parts.join('+');
}

} // namespace mimkins
