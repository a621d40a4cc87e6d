#include "Platform/Qt/DesktopHotKeys.h"

#include "Platform/Qt/PortalHotKeys.h"

#include <QByteArray>
#include <QGuiApplication>

#include <string>

namespace mimkins {

HotKeyWay hotKeyWay(const DesktopSession& session) {
    if (session.type == "wayland" || session.hasWaylandDisplay) {
        return HotKeyWay::portal;
    }
    return session.onXServer ? HotKeyWay::grabs : HotKeyWay::none;
}

std::unique_ptr<HotKeys> makeHotKeys(XcbHotKeys::Loops loops) {
    const std::string type = qgetenv("XDG_SESSION_TYPE").toStdString();
    const DesktopSession session{
        type, qEnvironmentVariableIsSet("WAYLAND_DISPLAY"),
        qGuiApp->nativeInterface<QNativeInterface::QX11Application>() != nullptr};
    switch (hotKeyWay(session)) {
    case HotKeyWay::grabs:
        return std::make_unique<XcbHotKeys>(loops);
    case HotKeyWay::portal:
        return std::make_unique<PortalHotKeys>(loops.main);
    case HotKeyWay::none:
        break;
    }
    return std::make_unique<NoHotKeys>();
}

} // namespace mimkins
