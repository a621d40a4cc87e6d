#pragma once

#include "PanelView/PanelScreen.h"
#include "SettingsView/SettingsContent.h"

namespace mimkins {

/// The settings as a screen that scrolls.
class SettingsView final : public PanelScreen {
public:
    /// What it is given outlives the view.
    SettingsView(const SettingsParts& parts, const CardLook& look);

    void setLook(const CardLook& look) override;

    SettingsContent& content() const { return *content_; }

private:
    SettingsContent* content_;
};

} // namespace mimkins
