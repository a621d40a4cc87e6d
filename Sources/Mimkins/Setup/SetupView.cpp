#include "Setup/SetupView.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/Labels.h"
#include "Setup/SetupKit.h"

#include <QAccessible>
#include <QVBoxLayout>

#include <utility>

namespace mimkins {

namespace {

constexpr int padding = 20;
constexpr int spacing = 10;
constexpr int buttonsPadding = 4;
constexpr double petAge = 1; ///< seconds in its state when it appears

Pet petOf(PetAction action, Date now) {
    Pet pet;
    pet.action = action;
    pet.seed = SetupWords::petSeed;
    pet.since = now + -petAge;
    return pet;
}

} // namespace

SetupView::SetupView(Parts parts, const CardLook& look)
    : parts_(std::move(parts)), look_(look), words_(SetupWords::of(parts_.connection.status())),
      pet_(new PetBox(petOf(words_.pet, parts_.clock.now()), petSide, look)),
      heading_(kit::wrappedLabel(Qt::AlignCenter)), text_(kit::wrappedLabel(Qt::AlignCenter)),
      changes_(new ChangeBox), detailsButton_(new PillButton(PillButton::Kind::plain, 11)),
      details_(new SelectableText(10)), unfolding_(new Unfolding(details_)),
      message_(kit::wrappedLabel(Qt::AlignCenter)), detailsRow_(new ButtonRow), row_(new ButtonRow) {
    setAccessibleName("Setup");
    details_->setAccessibleName(qt::text(SetupWords::detailsTitle(false)));
    makeColumn();
    connect(detailsButton_, &QAbstractButton::clicked, this, [this] {
        setShowDetails(!unfolding_->isOpen(), Unfolding::Motion::glide);
    });
    changed_ = parts_.connection.changed().connect([this] { showConnection(); });
    setShowDetails(false, Unfolding::Motion::jump);
    showConnection();
    showPet();
    setLook(look);
}

SetupView::~SetupView() {
    changed_.disconnect();
}

void SetupView::makeColumn() {
    auto* canvas = new QWidget;
    auto* column = new QVBoxLayout(canvas);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(spacing);
    column->addStretch(1);
    column->addWidget(pet_, 0, Qt::AlignHCenter);
    column->addWidget(heading_);
    column->addWidget(text_);
    column->addWidget(changes_);
    detailsRow_->setButtons({detailsButton_});
    column->addWidget(detailsRow_);
    column->addWidget(unfolding_);
    column->addWidget(message_);
    column->addSpacing(buttonsPadding);
    column->addWidget(row_);
    column->addStretch(1);
    setWidget(canvas);
    canvas->setAutoFillBackground(false);
}

void SetupView::setLook(const CardLook& look) {
    PanelScreen::setLook(look);
    look_ = look;
    const PetTheme& theme = *look.theme;
    pet_->setLook(look);
    dress(*heading_, look.typography.font(17, QFont::ExtraBold), theme.text);
    dress(*text_, look.typography.font(12, QFont::Medium), theme.subtext);
    changes_->setLook(look);
    detailsButton_->setLook(look);
    details_->setLook(look);
    dress(*message_, look.typography.systemFont(11), theme.subtext);
    for (auto* button : row_->buttons()) {
        button->setLook(look);
    }
}

void SetupView::animate(Date now) {
    pet_->animate(now);
}

void SetupView::setShowDetails(bool show, Unfolding::Motion motion) {
    unfolding_->setOpen(show, motion);
    detailsButton_->setWords(qt::text(SetupWords::detailsTitle(show)));
    detailsButton_->setSymbol(show ? Symbol::chevronUp : Symbol::infoCircle);
}

void SetupView::showEvent(QShowEvent* event) {
    PanelScreen::showEvent(event);
    if (!event->spontaneous()) {
        parts_.connection.refresh();
        showPet();
    }
}

void SetupView::showConnection() {
    words_ = SetupWords::of(parts_.connection.status());
    kit::show(*heading_, words_.heading);
    kit::show(*text_, words_.text);
    changes_->setVisible(words_.explains);
    detailsRow_->setVisible(words_.explains);
    details_->setWords(qt::text(parts_.connection.changeSummary()));
    if (!words_.explains) {
        setShowDetails(false, Unfolding::Motion::jump);
    }
    kit::showMessage(*message_, parts_.connection.lastMessage());
    if (pet_->pet().action != words_.pet) {
        showPet();
    }
    showButtons();
}

void SetupView::showPet() {
    const Date now = parts_.clock.now();
    pet_->setPet(petOf(words_.pet, now));
    pet_->animate(now);
}

void SetupView::showButtons() {
    const bool hadFocus = row_->isAncestorOf(window()->focusWidget());
    std::vector<PillButton*> made;
    for (const auto& words : words_.buttons) {
        auto* button = new PillButton(words.primary ? PillButton::Kind::primary : PillButton::Kind::plain);
        button->setWords(qt::text(words.title));
        button->setLook(look_);
        connect(button, &QAbstractButton::clicked, this, [this, action = words.action] { press(action); });
        made.push_back(button);
    }
    row_->setButtons(made);
    if (hadFocus) {
        made.back()->setFocus(Qt::OtherFocusReason);
    }
}

void SetupView::press(SetupWords::Action action) {
    if (action == SetupWords::Action::connect) {
        parts_.connection.connect();
    } else if (parts_.done) {
        parts_.done();
    }
}

} // namespace mimkins
