#pragma once

#include "SettingsView/SettingsView.h"

#include <QPixmap>

namespace mimkins {

/// The settings in a window of their own, on the theme's background.
class SettingsWindow final : public QWidget {
public:
    /// What it is given outlives the window.
    explicit SettingsWindow(const SettingsParts& parts);
    ~SettingsWindow() override;

    SettingsContent& content() const { return view_->content(); }

    /// Shows the window, or brings it forward.
    void bringForward();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    CardLook look() const;
    void followSettings(std::string_view key);

    AppSettings& settings_;
    PetTheme theme_; ///< with plain colours
    SettingsView* view_;
    QPixmap ground_;
    sigc::connection changed_;
};

} // namespace mimkins
