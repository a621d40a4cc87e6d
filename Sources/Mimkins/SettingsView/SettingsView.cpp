#include "SettingsView/SettingsView.h"

namespace mimkins {

namespace {

constexpr int scrollBarWidth = 6;

} // namespace

SettingsView::SettingsView(const SettingsParts& parts, const CardLook& look)
    : content_(new SettingsContent(parts, look)) {
    setAccessibleName("Settings");
    setWidget(content_);
    content_->setAutoFillBackground(false);
    content_->setScrollBarRoom(scrollBarWidth);
    PanelScreen::setLook(look);
}

void SettingsView::setLook(const CardLook& look) {
    PanelScreen::setLook(look);
    content_->setLook(look);
}

} // namespace mimkins
