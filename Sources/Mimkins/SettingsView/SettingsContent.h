#pragma once

#include "Presentation/SettingsWords.h"
#include "Settings/AppSettings.h"
#include "Settings/LoginItem.h"
#include "SettingsView/FunRow.h"
#include "SettingsView/LabelledRow.h"
#include "SettingsView/MenuPicker.h"
#include "SettingsView/NumberSlider.h"
#include "SettingsView/SectionBox.h"
#include "SettingsView/SegmentedPicker.h"
#include "SettingsView/Switch.h"
#include "SettingsView/TextArea.h"
#include "SettingsView/ThemeGrid.h"

#include <QVBoxLayout>
#include <QWidget>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// What stands in the section about the client.
struct ConnectionPart {
    QWidget* widget = nullptr; ///< taken over
    std::function<void(const CardLook&)> setLook;
};

struct SettingsParts {
    AppSettings& settings;
    LoginItem& login;
    std::function<void()> quit;
    /// Makes what stands in the section about the client; without it there is no such section.
    std::function<ConnectionPart(const CardLook&)> connection;
};

/// All settings, section below section. Each control shows a preference and sets it at once; a change that
/// comes from elsewhere shows as well.
class SettingsContent final : public QWidget {
public:
    /// What it is given outlives the view.
    SettingsContent(const SettingsParts& parts, const CardLook& look);
    ~SettingsContent() override;

    /// Called when the user begins to write into the text, and when they leave it other than by Tab.
    std::function<void(bool)> onWriting;

    void setLook(const CardLook& look);

    /// Leaves out so much at the right, where a scroll bar stands.
    void setScrollBarRoom(int room);

    /// To be called when a shortcut has been registered, or couldn't be.
    void followShortcut() { followFacts(); }

    const std::vector<SectionBox*>& sections() const { return sections_; }

    /// The whole row of a key, whether or not it shows; null if there is none.
    QWidget* row(std::string_view key) const;
    /// What the row of a key is changed with; null if there is none.
    QWidget* control(std::string_view key) const;

    const Words& footer() const { return *footer_; }

private:
    void addSection(const SettingsSection& section);
    QWidget* makeRow(const SettingsRow& row);
    QWidget* makeThemes();
    QWidget* makePicker(const SettingsRow& row);
    QWidget* makeMenu(const SettingsRow& row);
    QWidget* makeToggle(const SettingsRow& row);
    QWidget* makeSlider(const SettingsRow& row);
    QWidget* makeText(const SettingsRow& row);
    QWidget* makeLine(const SettingsRow& row);
    QWidget* makeFun(const SettingsRow& row);
    QWidget* makeQuit(const SettingsRow& row);
    QWidget* makeConnection(const SettingsRow& row);
    QWidget* labelled(const SettingsRow& row, QWidget* control, LabelledRow::Place place, int bleed = 0);
    template <typename Part>
    void dress(Part* part);
    SettingsFacts facts() const;
    void follow(std::string_view key);
    void followFacts();

    SettingsParts parts_;
    CardLook look_;
    QVBoxLayout* column_;
    std::vector<SectionBox*> sections_;
    FunRow* fun_ = nullptr;
    Words* footer_ = nullptr;
    std::map<std::string, QWidget*, std::less<>> rows_;
    std::map<std::string, QWidget*, std::less<>> controls_;
    std::map<std::string, Words*, std::less<>> lines_;
    std::map<std::string, std::function<void()>, std::less<>> followers_;
    std::vector<std::function<void(const CardLook&)>> dressers_;
    sigc::connection changed_;
};

} // namespace mimkins
