#include "SettingsView/SettingsContent.h"

#include "Drawing/Qt/Conversions.h"
#include "Settings/HotKeyRegistration.h"
#include "SettingsView/CapsuleButton.h"
#include "SettingsView/OptionBinding.h"

#include <utility>
#include <variant>

namespace mimkins {

namespace {

constexpr int padding = 14;
constexpr int spacing = 14;
constexpr double blurbPoints = 11;
constexpr double linePoints = 10;
constexpr std::string_view partyKey = "throwParty";

QWidget* found(const std::map<std::string, QWidget*, std::less<>>& widgets, std::string_view key) {
    const auto entry = widgets.find(key);
    return entry != widgets.end() ? entry->second : nullptr;
}

} // namespace

SettingsContent::SettingsContent(const SettingsParts& parts, const CardLook& look)
    : parts_(parts), look_(look), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(padding, padding, padding, padding);
    column_->setSpacing(spacing);
    using settings_words::HasConnection;
    const auto has = parts_.connection ? HasConnection::yes : HasConnection::no;
    for (const auto& section : settings_words::sections(has)) {
        addSection(section);
    }
    footer_ = new Words(settings_words::footer, {linePoints, QFont::Normal, Words::Ink::subtext, 0});
    dress(footer_);
    column_->addWidget(footer_);
    column_->addStretch(1);
    setAccessibleName("Settings");
    for (const auto& [key, follower] : followers_) {
        follower();
    }
    followFacts();
    setLook(look);
    changed_ = parts_.settings.changed().connect([this](std::string_view key) { follow(key); });
}

SettingsContent::~SettingsContent() {
    changed_.disconnect();
}

void SettingsContent::setLook(const CardLook& look) {
    look_ = look;
    for (const auto& dresser : dressers_) {
        dresser(look_);
    }
}

void SettingsContent::setScrollBarRoom(int room) {
    column_->setContentsMargins(padding, padding, padding - room, padding);
}

QWidget* SettingsContent::row(std::string_view key) const {
    return found(rows_, key);
}

QWidget* SettingsContent::control(std::string_view key) const {
    return found(controls_, key);
}

template <typename Part>
void SettingsContent::dress(Part* part) {
    dressers_.push_back([part](const CardLook& look) { part->setLook(look); });
}

void SettingsContent::addSection(const SettingsSection& section) {
    auto* box = new SectionBox(section.title);
    dress(box);
    for (const auto& row : section.rows) {
        auto* widget = makeRow(row);
        rows_[std::string(row.key)] = widget;
        if (widget->parentWidget() != box) { // the buttons of a row are added together
            box->add(*widget);
        }
    }
    sections_.push_back(box);
    column_->addWidget(box);
}

QWidget* SettingsContent::makeRow(const SettingsRow& row) {
    using Control = SettingsRow::Control;
    switch (row.control) {
    case Control::themes:
        return makeThemes();
    case Control::picker:
        return makePicker(row);
    case Control::menu:
        return makeMenu(row);
    case Control::toggle:
        return makeToggle(row);
    case Control::slider:
        return makeSlider(row);
    case Control::text:
        return makeText(row);
    case Control::fun:
        return makeFun(row);
    case Control::button:
        return makeQuit(row);
    case Control::connection:
        return makeConnection(row);
    case Control::line:
        break;
    }
    return makeLine(row);
}

QWidget*
SettingsContent::labelled(const SettingsRow& row, QWidget* control, LabelledRow::Place place, int bleed) {
    controls_[std::string(row.key)] = control;
    auto* made = new LabelledRow({row.label, row.hint, control, place, bleed});
    dress(made);
    return made;
}

QWidget* SettingsContent::makeThemes() {
    auto* grid = new ThemeGrid;
    grid->setAccessibleName("Theme");
    Preference<std::string>& preference = parts_.settings.themeId;
    grid->onChoose = [&preference](const std::string& id) { preference.set(id); };
    const std::string key(preference.key());
    followers_[key] = [grid, &preference] { grid->setChosen(preference()); };
    controls_[key] = grid;
    dress(grid);
    return grid;
}

QWidget* SettingsContent::makePicker(const SettingsRow& row) {
    auto* picker = new SegmentedPicker(row.options);
    const auto binding = optionBinding(parts_.settings, row.key);
    picker->onChoose = [binding](std::size_t option) {
        if (binding.chosen() != option) {
            binding.choose(option);
        }
    };
    followers_[std::string(row.key)] = [picker, binding] { picker->setChosen(binding.chosen()); };
    dress(picker);
    return labelled(row, picker, LabelledRow::Place::beside);
}

QWidget* SettingsContent::makeMenu(const SettingsRow& row) {
    auto* menu = new MenuPicker(row.options);
    AppSettings& settings = parts_.settings;
    const auto binding = optionBinding(settings, row.key);
    const bool isSound = row.key == settings.chirpSound.key();
    menu->onChoose = [&settings, binding, isSound](std::size_t option) {
        if (binding.chosen() == option) {
            return;
        }
        binding.choose(option);
        if (isSound) {
            settings.playChirp();
        }
    };
    followers_[std::string(row.key)] = [menu, &settings, binding] {
        if (const auto option = binding.chosen()) {
            menu->setChosen(*option);
        } else {
            menu->setForeign(settings.chirpSound()); // the only one that can be something else
        }
    };
    dress(menu);
    return labelled(row, menu, LabelledRow::Place::beside);
}

QWidget* SettingsContent::makeToggle(const SettingsRow& row) {
    auto* toggle = new Switch;
    if (auto* preference = togglePreference(parts_.settings, row.key)) {
        connect(toggle, &QAbstractButton::clicked, this, [preference](bool on) { preference->set(on); });
        followers_[std::string(row.key)] = [toggle, preference] {
            if (toggle->isChecked() != (*preference)()) {
                toggle->setChecked((*preference)());
            }
        };
    } else {
        toggle->setChecked(parts_.login.isOn());
        connect(toggle, &QAbstractButton::clicked, this, [this](bool on) { parts_.login.set(on); });
    }
    dress(toggle);
    auto* made = labelled(row, toggle, LabelledRow::Place::trailing, Switch::ringRoom);
    static_cast<LabelledRow*>(made)->onPress = [toggle] { toggle->click(); };
    return made;
}

QWidget* SettingsContent::makeSlider(const SettingsRow& row) {
    auto* slider = new NumberSlider(settings_words::lowestTab, settings_words::highestTab);
    Preference<double>& preference = parts_.settings.tabHeight;
    slider->onChange = [&preference](double number) { preference.set(number); };
    followers_[std::string(row.key)] = [slider, &preference] { slider->setNumber(preference()); };
    dress(slider);
    return labelled(row, slider, LabelledRow::Place::beside, NumberSlider::ringRoom);
}

QWidget* SettingsContent::makeText(const SettingsRow& row) {
    auto* area = new TextArea;
    area->setPlaceholder(qt::text(settings_words::customPromptPlaceholder));
    Preference<std::string>& preference = parts_.settings.customPrompt;
    area->onChange = [&preference](const QString& text) { preference.set(text.toStdString()); };
    area->onWriting = [this](bool writing) {
        if (onWriting) {
            onWriting(writing);
        }
    };
    followers_[std::string(row.key)] = [area, &preference] { area->setText(qt::text(preference())); };
    dress(area);
    auto* made = labelled(row, area, LabelledRow::Place::below);
    area->setWords(qt::text(row.label), qt::text(row.hint));
    return made;
}

QWidget* SettingsContent::makeLine(const SettingsRow& row) {
    const bool isBlurb = sections_.empty();
    const bool isFailure = row.key == HotKeyRegistration::statusKey;
    auto* words = new Words(
        {isBlurb ? blurbPoints : linePoints, QFont::Normal,
         isFailure ? Words::Ink::text : Words::Ink::subtext, 0}
    );
    lines_[std::string(row.key)] = words;
    dress(words);
    return words;
}

QWidget* SettingsContent::makeFun(const SettingsRow& row) {
    const bool isParty = row.key == partyKey;
    auto* button = new CapsuleButton(isParty ? Symbol::partyPopper : Symbol::shuffle, row.label);
    connect(button, &QAbstractButton::clicked, this, [this, isParty] {
        isParty ? parts_.settings.throwParty() : parts_.settings.shufflePets();
    });
    controls_[std::string(row.key)] = button;
    if (fun_ == nullptr) {
        fun_ = new FunRow;
        dress(fun_);
    }
    fun_->add(button);
    return fun_;
}

QWidget* SettingsContent::makeQuit(const SettingsRow& row) {
    auto* button = new CapsuleButton(Symbol::power, row.label);
    connect(button, &QAbstractButton::clicked, this, [this] {
        if (parts_.quit) {
            parts_.quit();
        }
    });
    controls_[std::string(row.key)] = button;
    auto* alone = new FunRow;
    alone->add(button);
    dress(alone);
    return alone;
}

QWidget* SettingsContent::makeConnection(const SettingsRow& row) {
    const ConnectionPart part = parts_.connection(look_);
    controls_[std::string(row.key)] = part.widget;
    if (part.setLook) {
        dressers_.push_back(part.setLook);
    }
    return part.widget;
}

SettingsFacts SettingsContent::facts() const {
    const AppSettings& settings = parts_.settings;
    SettingsFacts facts{settings.themeId(), settings.reorder(), settings.chirp(), settings.hotkey(), {}};
    const auto status = settings.defaults().value(HotKeyRegistration::statusKey);
    if (const auto* words = status ? std::get_if<std::string>(&*status) : nullptr) {
        facts.hotkeyStatus = *words;
    }
    return facts;
}

void SettingsContent::follow(std::string_view key) {
    if (const auto follower = followers_.find(key); follower != followers_.end()) {
        follower->second();
    }
    followFacts();
}

void SettingsContent::followFacts() {
    const SettingsFacts now = facts();
    for (const auto& [key, words] : lines_) {
        words->setText(qt::text(settings_words::line(key, now)));
    }
    for (const auto& [key, row] : rows_) {
        row->setVisible(settings_words::shows(key, now));
    }
}

} // namespace mimkins
