#include "PanelView/PanelView.h"

#include "Base/Perf.h"
#include "Drawing/Qt/Scheme.h"
#include "NextUp/OpenSession.h"
#include "PanelView/AccessibleRole.h"
#include "Presentation/SessionPet.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace mimkins {

namespace {

/// Between two frames of lively pets, seconds.
constexpr double frameSeconds = 1.0 / 24;

PetTheme shownTheme(const std::string& id) {
    return PetTheme::named(id).resolved(systemScheme());
}

/// Where the windows stand is nothing that the view shows.
bool showsTheSame(const PanelSettings& left, PanelSettings right) {
    right.tabPosition = left.tabPosition;
    right.panelWidth = left.panelWidth;
    return left == right;
}

} // namespace

PanelView::PanelView(Parts parts, PanelSettings settings)
    : parts_(parts), settings_(std::move(settings)), theme_(shownTheme(settings_.themeId)),
      header_(new PanelHeader), list_(new SessionList(look())), empty_(new EmptyState),
      sweep_(new SweepView(look())), fade_(new ScreenFade), confetti_(new Confetti(this, parts_.loop)),
      ground_(*this, theme_, parts_.loop.now()) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(header_);
    column->addWidget(list_, 1);
    column->addWidget(empty_, 1);
    column->addWidget(sweep_, 1);
    fade_->setParent(this);
    fade_->hide();
    header_->setLook(theme_, look().typography);
    empty_->setLook(theme_, look().typography);
    header_->onMode = [this](DrawerMode mode) { parts_.drawer.setMode(mode); };
    sweep_->onCheck = [this] { parts_.store.runSweep(); };
    sweep_->onOpen = [this](const std::string& link) { openLink(link, parts_.links); };
    list_->onOpen = [this](const std::string& id) { open(id); };
    list_->onToggleSubtasks = [this](const std::string& id) { parts_.store.toggleSubtasks(id); };
    list_->onChoose = [this](const std::string& id, const CardChoice& choice) { choose(id, choice); };
    list_->setQuickPrompts(settings_.quickPrompts);
    sessionsConnection_ = parts_.store.sessionsChanged().connect([this] { showSessions(); });
    sweepConnection_ = parts_.store.sweepChanged().connect([this] { showSweep(); });
    subtasksConnection_ = parts_.store.subtasksChanged().connect([this] { showSessions(); });
    drawerConnection_ = parts_.drawer.changed().connect([this] { followDrawer(); });
    setAccessibleRole(*this, QAccessible::Pane);
    setAccessibleName("Mimkins");
    confetti_->setParty(settings_.motion.party);
    list_->setPaused(true); // the first list stands there at once
    presentSessions();
    followDrawer();
}

PanelView::~PanelView() {
    sessionsConnection_.disconnect();
    sweepConnection_.disconnect();
    subtasksConnection_.disconnect();
    drawerConnection_.disconnect();
}

CardLook PanelView::look() {
    return {
        &theme_, Typography(theme_.font), settings_.petPoints, petLook(theme_, settings_.motion), &ground_};
}

void PanelView::setSettings(const PanelSettings& settings) {
    if (showsTheSame(settings_, settings)) {
        return;
    }
    const bool looksNew =
        settings.themeId != settings_.themeId || settings.cards.shuffle != settings_.cards.shuffle;
    if (looksNew && isVisible() && !parts_.drawer.animationsPaused()) {
        fade_->begin(*this);
    }
    settings_ = settings;
    theme_ = shownTheme(settings_.themeId);
    header_->setLook(theme_, look().typography);
    empty_->setLook(theme_, look().typography);
    sweep_->setLook(look());
    for (const auto& [mode, screen] : screens_) {
        screen->setLook(look());
    }
    list_->setLook(look());
    ground_.themeChanged(parts_.loop.now());
    confetti_->setParty(settings_.motion.party);
    list_->setQuickPrompts(settings_.quickPrompts);
    showSessions();
    update();
}

CardContext PanelView::cardContext(const std::string& id) const {
    CardContext context;
    const auto subtasks = parts_.store.subtasks().find(id);
    if (subtasks != parts_.store.subtasks().end()) {
        context.subtasks = subtasks->second;
    }
    context.expanded = parts_.store.expandedId() == id;
    context.highlighted = parts_.drawer.highlightedId() == id;
    return context;
}

void PanelView::showSessions() {
    // What nobody sees is made once somebody looks.
    isStale_ = parts_.drawer.animationsPaused();
    if (!isStale_) {
        presentSessions();
    }
}

void PanelView::presentSessions() {
    isStale_ = false;
    const auto& sessions = parts_.store.sessions();
    std::vector<CardRow> rows;
    rows.reserve(sessions.size());
    for (const auto& session : sessions) {
        rows.push_back(cardRow(session, settings_.cards, cardContext(session.id)));
    }
    header_->present(parts_.drawer.mode(), summary(sessions));
    list_->setRows(rows, parts_.loop.now());
    showScreen();
    keepTime();
}

void PanelView::showSweep() {
    if (mode_ == DrawerMode::sweep) {
        sweep_->present(parts_.store.sweep(), parts_.store.sweeping(), parts_.loop.now());
    }
}

void PanelView::addScreen(DrawerMode mode, MakeScreen make) {
    makers_[mode] = std::move(make);
    if (mode == DrawerMode::settings) {
        header_->showCog();
    }
    makeScreen();
    showScreen();
    keepTime();
}

/// Makes the screen of the present mode unless it is there.
void PanelView::makeScreen() {
    const auto maker = makers_.extract(mode_);
    if (maker.empty()) {
        return;
    }
    PanelScreen* screen = maker.mapped()(look());
    screens_[mode_] = screen;
    screen->hide();
    static_cast<QVBoxLayout*>(layout())->addWidget(screen, 1); // NOLINT: made so by the constructor
}

/// The one that shows, if it is one of those that were added.
PanelScreen* PanelView::addedScreen() const {
    const auto found = screens_.find(mode_);
    return found != screens_.end() ? found->second : nullptr;
}

QWidget* PanelView::screen() const {
    if (auto* added = addedScreen()) {
        return added;
    }
    if (mode_ == DrawerMode::sweep) {
        return sweep_;
    }
    return parts_.store.sessions().empty() ? static_cast<QWidget*>(empty_) : list_;
}

void PanelView::showScreen() {
    const std::array<QWidget*, 3> screens{list_, empty_, sweep_};
    for (auto* each : screens) {
        each->setVisible(each == screen());
    }
    for (const auto& [mode, added] : screens_) {
        added->setVisible(added == screen());
    }
}

void PanelView::changeScreen() {
    if (mode_ == parts_.drawer.mode()) {
        return;
    }
    if (isVisible() && !parts_.drawer.animationsPaused()) {
        fade_->begin(*screen());
    }
    mode_ = parts_.drawer.mode();
    makeScreen();
    if (mode_ == DrawerMode::sweep) {
        parts_.store.runSweep();
        showSweep();
    }
    showScreen();
}

void PanelView::followDrawer() {
    if (isStale_ && !parts_.drawer.animationsPaused()) {
        presentSessions(); // before anything may move, so that the list stands there at once
    }
    confetti_->setPaused(parts_.drawer.animationsPaused());
    list_->setPaused(parts_.drawer.animationsPaused());
    const auto spins = !parts_.drawer.animationsPaused();
    header_->present(parts_.drawer.mode(), summary(parts_.store.sessions()), spins);
    changeScreen();
    if (highlighted_ != parts_.drawer.highlightedId()) {
        highlighted_ = parts_.drawer.highlightedId();
        presentSessions();
        if (highlighted_) {
            list_->glideTo(*highlighted_);
        }
    }
    keepTime();
}

void PanelView::keepTime() {
    const bool seen = !parts_.drawer.animationsPaused();
    const bool empty = screen() == empty_;
    if (!seen || empty) {
        beat_.reset();
    } else if (!beat_) {
        beat();
        beat_ = parts_.loop.every(1.0, [this] { beat(); });
    }
    if (!seen || (empty && !ground_.moves())) {
        frames_.reset();
    } else if (!frames_) {
        frames_ = parts_.loop.every(frameSeconds, [this] { animate(); });
    }
}

void PanelView::beat() {
    list_->setNow(parts_.loop.now());
    showSweep();
}

void PanelView::animate() {
    const Date now = parts_.loop.now();
    ground_.animate(now);
    header_->setNow(now);
    if (mode_ == DrawerMode::sweep) {
        sweep_->animate(now);
    } else if (auto* added = addedScreen()) {
        added->animate(now);
    } else if (!perf::off().contains("pets")) {
        list_->animate(now, frame_++);
    }
}

const Session* PanelView::find(const std::string& id) const {
    const auto& sessions = parts_.store.sessions();
    const auto session = std::find_if(sessions.begin(), sessions.end(), [&id](const Session& candidate) {
        return candidate.id == id;
    });
    return session != sessions.end() ? &*session : nullptr;
}

void PanelView::open(const std::string& id) {
    choose(id, {CardChoice::Action::open, std::nullopt});
}

void PanelView::choose(const std::string& id, const CardChoice& choice) {
    const Session* session = find(id);
    if (session == nullptr) {
        return;
    }
    switch (choice.action) {
    case CardChoice::Action::open:
        jump(*session, parts_.links);
        break;
    case CardChoice::Action::newSession:
        newSession(*session, choice.prompt, parts_.links);
        break;
    case CardChoice::Action::showFolder:
        showFolder(*session, parts_.links);
        break;
    }
}

/// Gives the focus to the first thing below the header that takes it.
void PanelView::enterScreen() {
    const auto cards = list_->cards();
    if (screen() == list_ && !cards.empty()) {
        cards.front()->setFocus(Qt::TabFocusReason);
        return;
    }
    const auto takesFocus = [this](const QWidget* widget) {
        return screen()->isAncestorOf(widget) && widget->isVisible() && widget->isEnabled() &&
               (widget->focusPolicy() & Qt::TabFocus) != 0;
    };
    QWidget* next = screen()->nextInFocusChain();
    while (next != screen() && !takesFocus(next)) {
        next = next->nextInFocusChain();
    }
    if (next != screen()) {
        next->setFocus(Qt::TabFocusReason);
    }
}

void PanelView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        if (onClose) {
            onClose();
        }
        break;
    case Qt::Key_Down:
    case Qt::Key_Up:
        enterScreen();
        break;
    default:
        event->ignore();
    }
}

void PanelView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    ground_.draw(painter, event->region());
}

} // namespace mimkins
