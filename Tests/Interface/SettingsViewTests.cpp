#include "PanelView/PanelView.h"
#include "SettingsView/CapsuleButton.h"
#include "SettingsView/SettingsWindow.h"

#include "Support/ManualRunLoop.h"
#include "Support/MemoryPreferencesStore.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>

#include <memory>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecordingSounds final : public SoundPlayer {
public:
    void play(const std::string& name) override { played.push_back(name); }

    std::vector<std::string> played;
};

class FakeLogin final : public LoginService {
public:
    void registerItem() override { now = Status::enabled; }

    void unregisterItem() override { now = Status::notRegistered; }

    Status status() const override { return now; }

    Status now = Status::enabled;
};

class Settings : public testing::Test {
protected:
    void start() {
        settings = std::make_unique<AppSettings>(AppSettings::Parts{preferences, loop, sounds});
        view = std::make_unique<SettingsView>(
            SettingsParts{*settings, login, [this] { ++quits; }, connection}, look
        );
        view->resize(320, 700);
        view->show();
        QApplication::setActiveWindow(view.get());
        QCoreApplication::processEvents();
    }

    SettingsContent& content() { return view->content(); }

    template <typename Control>
    Control& control(std::string_view key) {
        return dynamic_cast<Control&>(*content().control(key));
    }

    SegmentedPicker& picker(std::string_view key) { return control<SegmentedPicker>(key); }

    Switch& toggle(std::string_view key) { return control<Switch>(key); }

    PreferencesStore::Value stored(const std::string& key) const {
        return preferences.value(key).value_or(std::string("nothing"));
    }

    std::string line(std::string_view key) {
        return dynamic_cast<Words&>(*content().row(key)).text().toStdString();
    }

    std::vector<std::string> titles() {
        std::vector<std::string> all;
        for (const auto* section : content().sections()) {
            all.push_back(section->title().toStdString());
        }
        return all;
    }

    ManualRunLoop loop;
    MemoryPreferencesStore preferences;
    RecordingSounds sounds;
    FakeLogin service;
    LoginItem login{service};
    PetTheme theme = PetTheme::nightSky().resolved(ColorScheme::dark);
    CardLook look{&theme, Typography(theme.font, 1), 62, {}};
    std::function<ConnectionPart(const CardLook&)> connection;
    int quits = 0;
    std::unique_ptr<AppSettings> settings;
    std::unique_ptr<SettingsView> view;
};

PreferencesStore::Value word(const char* value) {
    return std::string(value);
}

PreferencesStore::Value whole(std::int64_t value) {
    return value;
}

TEST_F(Settings, WithoutAConnectionGeneralFollowsFun) {
    start();
    EXPECT_THAT(titles(), ElementsAre("Theme", "Pets", "Panel", "Alerts", "Shortcuts", "Fun", "General"));
    EXPECT_EQ(content().control("connection"), nullptr);
    const auto& sections = content().sections();
    EXPECT_LT(sections[5]->geometry().bottom(), sections[6]->geometry().top());
    EXPECT_EQ(content().footer().text(), "Mimkins · everything stays on this Mac, nothing is sent anywhere.");
    EXPECT_GT(content().footer().geometry().top(), sections.back()->geometry().bottom());
}

TEST_F(Settings, ConnectionStandsInASectionOfItsOwnAndFollowsTheLook) {
    int looks = 0;
    auto* part = new QWidget;
    connection = [&looks, part](const CardLook&) {
        return ConnectionPart{part, [&looks](const CardLook&) { ++looks; }};
    };
    start();
    EXPECT_EQ(titles().at(6), "Claude Code");
    EXPECT_EQ(content().control("connection"), part);
    EXPECT_TRUE(content().sections().at(6)->isAncestorOf(part));
    const int before = looks;
    view->setLook(look);
    EXPECT_EQ(looks, before + 1);
}

TEST_F(Settings, NothingIsWrittenBeforeAChange) {
    preferences.values = {
        {"tabHeight", 0.987}, {"leaveAfterMinutes", whole(45)}, {"chirpSound", word("Moo")}};
    start();
    view->setLook(look);
    EXPECT_THAT(preferences.written, IsEmpty());
}

TEST_F(Settings, TileChoosesTheTheme) {
    start();
    auto& grid = control<ThemeGrid>("themeId");
    ASSERT_EQ(grid.tiles().size(), PetTheme::all().size());
    EXPECT_TRUE(grid.tiles()[1]->isChecked());
    QTest::mouseClick(grid.tiles()[2], Qt::LeftButton);
    EXPECT_EQ(stored("themeId"), word("paper"));
    EXPECT_EQ(line("themeBlurb"), "A notebook page, inked pets");
    settings->themeId.set("ocean");
    EXPECT_TRUE(grid.tiles()[6]->isChecked());
    EXPECT_FALSE(grid.tiles()[2]->isChecked());
    EXPECT_EQ(line("themeBlurb"), "Deep blue water, rising bubbles");
}

TEST_F(Settings, UnknownThemeChoosesNoTile) {
    preferences.values = {{"themeId", word("none such")}};
    start();
    for (const auto* tile : control<ThemeGrid>("themeId").tiles()) {
        EXPECT_FALSE(tile->isChecked());
    }
    EXPECT_EQ(line("themeBlurb"), "Indigo night, soft glows, drifting sparks");
    EXPECT_EQ(stored("themeId"), word("none such"));
}

TEST_F(Settings, PickersSetTheirPreference) {
    start();
    const auto choose = [this](std::string_view key, std::size_t option) {
        QTest::mouseClick(picker(key).segments().at(option), Qt::LeftButton);
        return stored(std::string(key));
    };
    EXPECT_EQ(choose("liveliness", 2), word("hyper"));
    EXPECT_EQ(choose("petSize", 0), word("small"));
    EXPECT_EQ(choose("drawerWidth", 2), word("wide"));
    EXPECT_EQ(choose("reorder", 0), word("always"));
    EXPECT_EQ(choose("leaveAfterMinutes", 3), whole(120));
    EXPECT_EQ(choose("stuckAfterMinutes", 0), whole(5));
}

TEST_F(Settings, PickersFollowTheirPreference) {
    start();
    EXPECT_EQ(picker("liveliness").chosen(), 1U);
    settings->liveliness.set(Liveliness::calm);
    settings->petSize.set(PetSize::large);
    settings->drawerWidth.set(DrawerWidth::narrow);
    settings->reorder.set(ReorderMode::never);
    settings->leaveAfterMinutes.set(15);
    settings->stuckAfterMinutes.set(20);
    EXPECT_EQ(picker("liveliness").chosen(), 0U);
    EXPECT_EQ(picker("petSize").chosen(), 2U);
    EXPECT_EQ(picker("drawerWidth").chosen(), 0U);
    EXPECT_EQ(picker("reorder").chosen(), 2U);
    EXPECT_EQ(picker("leaveAfterMinutes").chosen(), 0U);
    EXPECT_EQ(picker("stuckAfterMinutes").chosen(), 2U);
    EXPECT_EQ(
        line("reorderLine"),
        "Pets keep their places. The glow and the next-up shortcut find whoever needs you."
    );
    settings->leaveAfterMinutes.set(45);
    EXPECT_EQ(picker("leaveAfterMinutes").chosen(), std::nullopt);
}

TEST_F(Settings, ChoosingTheSameAgainWritesNothing) {
    start();
    QTest::mouseClick(picker("petSize").segments().at(1), Qt::LeftButton);
    EXPECT_THAT(preferences.written, IsEmpty());
    EXPECT_EQ(picker("petSize").chosen(), 1U);
}

TEST_F(Settings, SwitchesSetAndFollowTheirPreference) {
    start();
    const std::map<std::string, Preference<bool>*> all{
        {"antics", &settings->antics},       {"nameTags", &settings->nameTags},
        {"crewHeads", &settings->crewHeads}, {"modelBadges", &settings->modelBadges},
        {"showDone", &settings->showDone},   {"chirp", &settings->chirp},
        {"wiggleTab", &settings->wiggleTab}, {"menuBarCount", &settings->menuBarCount},
    };
    for (const auto& [key, preference] : all) {
        const bool before = (*preference)();
        EXPECT_EQ(toggle(key).isChecked(), before) << key;
        QTest::mouseClick(&toggle(key), Qt::LeftButton);
        EXPECT_EQ(stored(key), PreferencesStore::Value(!before)) << key;
        preference->set(before);
        EXPECT_EQ(toggle(key).isChecked(), before) << key;
    }
}

TEST_F(Settings, PressOnALabelTurnsItsSwitch) {
    start();
    const auto& row = dynamic_cast<LabelledRow&>(*content().row("antics"));
    QTest::mouseClick(content().row("antics"), Qt::LeftButton, {}, row.label().geometry().center());
    EXPECT_FALSE(settings->antics());
}

TEST_F(Settings, SoundShowsOnlyWhileTheChirpIsOn) {
    preferences.values = {{"chirpSound", word("Frog")}};
    start();
    EXPECT_FALSE(content().row("chirpSound")->isVisible());
    QTest::mouseClick(&toggle("chirp"), Qt::LeftButton);
    EXPECT_TRUE(content().row("chirpSound")->isVisible());
    EXPECT_EQ(control<MenuPicker>("chirpSound").currentText(), "Frog");
    QTest::mouseClick(&toggle("chirp"), Qt::LeftButton);
    EXPECT_FALSE(content().row("chirpSound")->isVisible());
    EXPECT_THAT(sounds.played, IsEmpty());
}

TEST_F(Settings, AnotherSoundIsPlayedOnce) {
    preferences.values = {{"chirp", true}};
    start();
    auto& menu = control<MenuPicker>("chirpSound");
    menu.setFocus();
    QTest::keyClick(&menu, Qt::Key_Down);
    EXPECT_EQ(stored("chirpSound"), word("Purr"));
    EXPECT_THAT(sounds.played, ElementsAre("Purr"));
    settings->chirpSound.set("Glass");
    EXPECT_EQ(menu.currentText(), "Glass");
    EXPECT_THAT(sounds.played, ElementsAre("Purr"));
}

TEST_F(Settings, UnknownSoundShowsAsItIsStored) {
    preferences.values = {{"chirp", true}, {"chirpSound", word("Moo")}};
    start();
    auto& menu = control<MenuPicker>("chirpSound");
    EXPECT_EQ(menu.currentIndex(), -1);
    EXPECT_EQ(menu.placeholderText(), "Moo");
}

TEST_F(Settings, SliderSetsTheHeightWhileItIsDragged) {
    start();
    auto& slider = control<NumberSlider>("tabHeight");
    EXPECT_NEAR(slider.number(), 0.62, 1e-9);
    std::vector<double> told;
    settings->tabHeight.changed().connect([&told](const double& height) { told.push_back(height); });
    const int middle = slider.height() / 2;
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(1, middle));
    EXPECT_NEAR(settings->tabHeight(), 0.15, 1e-9);
    QTest::mouseMove(&slider, QPoint(slider.width() / 2, middle));
    EXPECT_NEAR(settings->tabHeight(), 0.5, 0.01);
    QTest::mouseMove(&slider, QPoint(slider.width() + 50, middle));
    EXPECT_NEAR(settings->tabHeight(), 0.85, 1e-9);
    QTest::mouseRelease(&slider, Qt::LeftButton);
    EXPECT_EQ(told.size(), 3U);
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_NEAR(settings->tabHeight(), 0.84, 1e-9);
}

TEST_F(Settings, HeightBeyondTheLimitsStaysAsItIs) {
    preferences.values = {{"tabHeight", 0.05}};
    start();
    auto& slider = control<NumberSlider>("tabHeight");
    EXPECT_NEAR(slider.number(), 0.15, 1e-9);
    EXPECT_EQ(settings->tabHeight(), 0.05);
    settings->tabHeight.set(0.3);
    EXPECT_NEAR(slider.number(), 0.3, 1e-9);
    EXPECT_EQ(stored("tabHeight"), PreferencesStore::Value(0.3));
}

TEST_F(Settings, MenuOfShortcutsSetsAndFollows) {
    start();
    auto& menu = control<MenuPicker>("hotkey");
    EXPECT_EQ(menu.currentText(), "⌥⌘P");
    menu.setFocus();
    QTest::keyClick(&menu, Qt::Key_End);
    EXPECT_EQ(stored("hotkey"), word("off"));
    settings->hotkey.set(Hotkey::ctrlOptSpace);
    EXPECT_EQ(menu.currentText(), "⌃⌥Space");
    EXPECT_THAT(sounds.played, IsEmpty());
}

TEST_F(Settings, FailedShortcutIsToldOnceItIsKnown) {
    start();
    EXPECT_FALSE(content().row("hotkeyStatus")->isVisible());
    preferences.values["hotkeyStatus"] = word("⌥⌘P: failed 2026-11-21 07:30:00 +0000");
    content().followShortcut();
    EXPECT_TRUE(content().row("hotkeyStatus")->isVisible());
    EXPECT_EQ(line("hotkeyStatus"), "⌥⌘P: failed (taken by another app?)");
    settings->hotkey.set(Hotkey::off);
    EXPECT_FALSE(content().row("hotkeyStatus")->isVisible());
}

TEST_F(Settings, PromptIsStoredAsItIsWrittenAndGrows) {
    start();
    auto& area = control<TextArea>("customPrompt");
    EXPECT_EQ(area.edit().placeholderText(), "e.g. Run the tests and tell me what fails");
    const int two = area.height();
    area.edit().setFocus();
    QTest::keyClicks(&area.edit(), "one");
    EXPECT_EQ(stored("customPrompt"), word("one"));
    EXPECT_EQ(area.height(), two);
    settings->customPrompt.set("one\ntwo\nthree");
    QCoreApplication::processEvents();
    EXPECT_EQ(area.edit().toPlainText(), "one\ntwo\nthree");
    const int three = area.height();
    EXPECT_GT(three, two);
    settings->customPrompt.set("one\ntwo\nthree\nfour");
    QCoreApplication::processEvents();
    const int four = area.height();
    EXPECT_GT(four, three);
    settings->customPrompt.set("one\ntwo\nthree\nfour\nfive");
    QCoreApplication::processEvents();
    EXPECT_EQ(area.height(), four);
}

TEST_F(Settings, CaretStaysWhileThePromptIsWritten) {
    preferences.values = {{"customPrompt", word("ac")}};
    start();
    auto& edit = control<TextArea>("customPrompt").edit();
    edit.setFocus();
    QTest::keyClick(&edit, Qt::Key_Right);
    QTest::keyClicks(&edit, "b");
    EXPECT_EQ(settings->customPrompt(), "abc");
    EXPECT_EQ(edit.textCursor().position(), 2);
    QTest::keyClick(&edit, Qt::Key_Tab);
    EXPECT_FALSE(edit.hasFocus());
    EXPECT_EQ(settings->customPrompt(), "abc");
}

TEST_F(Settings, WritingIsToldWhileItLasts) {
    start();
    std::vector<bool> told;
    content().onWriting = [&told](bool writing) { told.push_back(writing); };
    auto& edit = control<TextArea>("customPrompt").edit();
    QTest::mouseClick(edit.viewport(), Qt::LeftButton);
    EXPECT_THAT(told, ElementsAre(true));
    toggle("loginOn").setFocus();
    EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(Settings, TabFromTheTextGoesOnInTheSameWindow) {
    start();
    auto& edit = control<TextArea>("customPrompt").edit();
    QTest::mouseClick(edit.viewport(), Qt::LeftButton);
    std::vector<bool> told;
    content().onWriting = [&told](bool writing) { told.push_back(writing); };
    QTest::keyClick(&edit, Qt::Key_Tab);
    EXPECT_FALSE(edit.hasFocus());
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Settings, PartyAndShuffle) {
    start();
    QTest::mouseClick(content().control("throwParty"), Qt::LeftButton);
    EXPECT_TRUE(settings->partying(loop.now()));
    QTest::mouseClick(content().control("shuffle"), Qt::LeftButton);
    EXPECT_EQ(stored("shuffle"), whole(1));
    QTest::keyClick(content().control("shuffle"), Qt::Key_Return);
    EXPECT_EQ(stored("shuffle"), whole(2));
    const AppSettings again({preferences, loop, sounds});
    EXPECT_EQ(again.petShuffle(), 2U);
}

TEST_F(Settings, LoginIsReadOnceAndSet) {
    start();
    EXPECT_TRUE(toggle("loginOn").isChecked());
    service.now = LoginService::Status::disabledByUser;
    settings->antics.set(false);
    EXPECT_TRUE(toggle("loginOn").isChecked());
    QTest::mouseClick(&toggle("loginOn"), Qt::LeftButton);
    EXPECT_EQ(service.now, LoginService::Status::notRegistered);
    QTest::mouseClick(&toggle("loginOn"), Qt::LeftButton);
    EXPECT_EQ(service.now, LoginService::Status::enabled);
}

TEST_F(Settings, LoginThatIsOffShowsSo) {
    service.now = LoginService::Status::disabledByUser;
    start();
    EXPECT_FALSE(toggle("loginOn").isChecked());
}

TEST_F(Settings, QuitQuits) {
    start();
    QTest::mouseClick(content().control("quit"), Qt::LeftButton);
    EXPECT_EQ(quits, 1);
}

TEST_F(Settings, ArrowsChooseTheNextOption) {
    start();
    const auto& segments = picker("liveliness").segments();
    segments[1]->setFocus();
    QTest::keyClick(segments[1], Qt::Key_Right);
    EXPECT_EQ(settings->liveliness(), Liveliness::hyper);
    EXPECT_TRUE(segments[2]->hasFocus());
    QTest::keyClick(segments[2], Qt::Key_Right);
    EXPECT_EQ(settings->liveliness(), Liveliness::hyper);
    QTest::keyClick(segments[2], Qt::Key_Up);
    EXPECT_EQ(settings->liveliness(), Liveliness::normal);
    QTest::keyClick(segments[1], Qt::Key_Left);
    EXPECT_EQ(settings->liveliness(), Liveliness::calm);
}

TEST_F(Settings, ArrowsChooseTheNextTheme) {
    start();
    const auto& tiles = control<ThemeGrid>("themeId").tiles();
    tiles[1]->setFocus();
    QTest::keyClick(tiles[1], Qt::Key_Down);
    EXPECT_EQ(settings->themeId(), tiles[3]->theme().id);
    EXPECT_TRUE(tiles[3]->hasFocus());
    QTest::keyClick(tiles[3], Qt::Key_Left);
    EXPECT_EQ(settings->themeId(), tiles[2]->theme().id);
}

TEST_F(Settings, TabReachesEachControlOnce) {
    preferences.values = {{"chirp", true}};
    start();
    auto* first = control<ThemeGrid>("themeId").tiles()[1];
    first->setFocus();
    std::vector<QWidget*> visited;
    for (int presses = 0; presses < 60; ++presses) {
        visited.push_back(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() == first) {
            break;
        }
    }
    // One tile, six of the pets, six of the panel, four of the alerts, two shortcuts and prompt, party and
    // shuffle, login and quit.
    EXPECT_EQ(visited.size(), 1U + 6 + 6 + 4 + 2 + 2 + 2);
    const auto place = [&visited](QWidget* widget) {
        return std::find(visited.begin(), visited.end(), widget) - visited.begin();
    };
    EXPECT_EQ(place(picker("liveliness").segments()[1]), 1);
    EXPECT_LT(place(&toggle("modelBadges")), place(&control<NumberSlider>("tabHeight")));
    EXPECT_EQ(place(content().control("quit")), static_cast<long>(visited.size()) - 1);
}

TEST_F(Settings, FocusScrollsIntoView) {
    start();
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
    content().control("throwParty")->setFocus();
    QTest::keyClick(content().control("throwParty"), Qt::Key_Tab);
    EXPECT_GT(view->verticalScrollBar()->value(), 0);
}

TEST_F(Settings, WheelOverAControlChangesNothing) {
    preferences.values = {{"chirp", true}};
    start();
    for (const char* key : {"tabHeight", "chirpSound", "hotkey"}) {
        auto* widget = content().control(key);
        const QPointF place(widget->rect().center());
        QWheelEvent wheel(
            place, widget->mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
            Qt::NoScrollPhase, false
        );
        QApplication::sendEvent(widget, &wheel);
    }
    EXPECT_THAT(preferences.written, IsEmpty());
}

QAccessibleInterface& accessible(QObject* object) {
    return *QAccessible::queryAccessibleInterface(object);
}

TEST_F(Settings, ScreenReadersHearNamesAndRoles) {
    preferences.values = {{"chirp", true}};
    start();
    const auto name = [](QObject* object) { return accessible(object).text(QAccessible::Name); };
    EXPECT_EQ(name(&toggle("antics")), "Idle antics");
    EXPECT_EQ(accessible(&toggle("antics")).role(), QAccessible::CheckBox);
    EXPECT_TRUE(accessible(&toggle("antics")).state().checked);
    EXPECT_EQ(accessible(&toggle("antics")).text(QAccessible::Description), "Juggling, sneezing, dancing…");
    EXPECT_EQ(name(&picker("reorder")), "Reorder pets");
    EXPECT_EQ(accessible(&picker("reorder")).role(), QAccessible::Grouping);
    auto* segment = picker("reorder").segments()[1];
    EXPECT_EQ(name(segment), "When they need you");
    EXPECT_EQ(accessible(segment).role(), QAccessible::RadioButton);
    EXPECT_TRUE(accessible(segment).state().checked);
    EXPECT_EQ(name(content().control("tabHeight")), "Tab height");
    EXPECT_EQ(accessible(content().control("tabHeight")).role(), QAccessible::Slider);
    // What is chosen is the name of a menu on this desktop; the label comes by a relation.
    EXPECT_EQ(name(content().control("chirpSound")), "Pop");
    const auto labels = accessible(content().control("chirpSound")).relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.front().first->text(QAccessible::Name), "Sound");
    EXPECT_EQ(accessible(content().control("chirpSound")).role(), QAccessible::ComboBox);
    auto& edit = control<TextArea>("customPrompt").edit();
    EXPECT_EQ(name(&edit), "My quick prompt");
    EXPECT_EQ(accessible(&edit).role(), QAccessible::EditableText);
    EXPECT_EQ(name(content().control("quit")), "Quit Mimkins");
    EXPECT_EQ(accessible(content().control("quit")).role(), QAccessible::PushButton);
    EXPECT_EQ(name(control<ThemeGrid>("themeId").tiles()[3]), "Pastel");
    EXPECT_EQ(accessible(content().sections()[2]).role(), QAccessible::Grouping);
    EXPECT_EQ(name(content().sections()[2]), "Panel");
}

/// Nothing is cut: each part lies inside its parent and is as large as what it says.
void expectWhole(const QWidget& widget, const std::string& where) {
    for (auto* child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (!child->isVisibleTo(&widget) || child->isWindow() ||
            dynamic_cast<const QAbstractScrollArea*>(child) != nullptr) {
            continue;
        }
        const std::string words = where + "/" + child->accessibleName().toStdString();
        EXPECT_TRUE(widget.rect().contains(child->geometry())) << words;
        if (const auto* label = dynamic_cast<const Words*>(child)) {
            const std::string said = words + label->text().toStdString();
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << said;
            for (const auto& word : label->text().split(' ')) {
                EXPECT_LE(QFontMetrics(label->font()).horizontalAdvance(word), label->width() + 1) << said;
            }
        } else if (const auto* button = dynamic_cast<const QAbstractButton*>(child)) {
            const std::string said = words + button->text().toStdString();
            const bool wraps = button->hasHeightForWidth();
            const QSize least = wraps ? button->minimumSizeHint() : button->sizeHint();
            EXPECT_GE(button->width(), least.width()) << said;
            EXPECT_GE(button->height(), wraps ? button->heightForWidth(button->width()) : least.height())
                << said;
        } else if (child->hasHeightForWidth()) {
            EXPECT_GE(child->height(), child->heightForWidth(child->width())) << words;
        }
        expectWhole(*child, words);
    }
}

TEST_F(Settings, NothingIsCutInAnyWidthAtAnySizeOfFont) {
    preferences.values = {{"chirp", true}, {"hotkeyStatus", word("⌥⌘P: failed 2026-11-21 07:30:00 +0000")}};
    start();
    for (const double scale : {1.0, 1.5, 2.0}) {
        for (const DrawerWidth width : {DrawerWidth::narrow, DrawerWidth::regular, DrawerWidth::wide}) {
            look.typography = Typography(theme.font, scale);
            view->setLook(look);
            view->resize(static_cast<int>(points(width)), 700);
            QCoreApplication::processEvents();
            EXPECT_EQ(content().width(), view->viewport()->width());
            expectWhole(content(), std::to_string(scale) + " " + std::to_string(points(width)));
        }
    }
}

TEST_F(Settings, PickersThatDoNotFitStandBelowTheirLabel) {
    start();
    const auto besides = [this](std::string_view key) {
        const auto& row = dynamic_cast<LabelledRow&>(*content().row(key));
        return content().control(key)->x() > row.label().geometry().right();
    };
    view->resize(380, 700);
    EXPECT_TRUE(besides("drawerWidth"));
    view->resize(320, 700);
    EXPECT_TRUE(besides("petSize"));
    EXPECT_FALSE(besides("reorder"));
}

TEST_F(Settings, EveryThemeShowsItsColours) {
    start();
    for (const auto& each : PetTheme::all()) {
        theme = each.resolved(ColorScheme::dark);
        view->setLook(look);
        const auto& label = dynamic_cast<LabelledRow&>(*content().row("antics")).label();
        const QColor ink = label.palette().color(QPalette::WindowText);
        EXPECT_NEAR(ink.redF(), theme.text.red, 0.01) << each.id;
        EXPECT_NEAR(ink.alphaF(), theme.text.opacity, 0.01) << each.id;
    }
}

TEST_F(Settings, WindowFollowsTheTheme) {
    start();
    SettingsWindow window({*settings, login, {}, {}});
    window.show();
    const auto picture = window.grab().toImage();
    QTest::mouseClick(
        dynamic_cast<ThemeGrid&>(*window.content().control("themeId")).tiles()[2], Qt::LeftButton
    );
    EXPECT_EQ(settings->themeId(), "paper");
    EXPECT_TRUE(control<ThemeGrid>("themeId").tiles()[2]->isChecked());
    const QColor before = picture.pixelColor(2, 2);
    const QColor after = window.grab().toImage().pixelColor(2, 2);
    EXPECT_LT(before.lightness(), 80);
    EXPECT_GT(after.lightness(), 200);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

} // namespace

} // namespace mimkins::test
