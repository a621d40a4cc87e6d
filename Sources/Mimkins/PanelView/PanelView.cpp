#include "PanelView/PanelView.h"

#include "Drawing/Qt/Scheme.h"
#include "Drawing/Qt/Shapes.h"
#include "NextUp/OpenSession.h"
#include "Presentation/SessionPet.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace mimkins {

namespace {

/// Between two frames of lively pets, seconds.
constexpr double frameSeconds = 1.0 / 24;

PetTheme shownTheme(const std::string& id) {
    return PetTheme::named(id).resolved(systemScheme());
}

} // namespace

PanelView::PanelView(Parts parts, PanelSettings settings)
    : parts_(parts), settings_(std::move(settings)), theme_(shownTheme(settings_.themeId)),
      header_(new PanelHeader), list_(new SessionList(look())), empty_(new EmptyState) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(header_);
    column->addWidget(list_, 1);
    column->addWidget(empty_, 1);
    header_->setLook(theme_, look().typography);
    empty_->setLook(theme_, look().typography);
    list_->onOpen = [this](const std::string& id) { open(id); };
    list_->onToggleSubtasks = [this](const std::string& id) { parts_.store.toggleSubtasks(id); };
    list_->onChoose = [this](const std::string& id, const CardChoice& choice) { choose(id, choice); };
    list_->setQuickPrompts(settings_.quickPrompts);
    sessionsConnection_ = parts_.store.sessionsChanged().connect([this] { showSessions(); });
    subtasksConnection_ = parts_.store.subtasksChanged().connect([this] { showSessions(); });
    drawerConnection_ = parts_.drawer.changed().connect([this] { followDrawer(); });
    setAccessibleName("Mimkins");
    list_->setPaused(true); // the first list stands there at once
    showSessions();
    followDrawer();
}

PanelView::~PanelView() {
    sessionsConnection_.disconnect();
    subtasksConnection_.disconnect();
    drawerConnection_.disconnect();
}

CardLook PanelView::look() const {
    return {&theme_, Typography(theme_.font), settings_.petPoints, petLook(theme_, settings_.motion)};
}

void PanelView::setSettings(const PanelSettings& settings) {
    if (settings_ == settings) {
        return;
    }
    settings_ = settings;
    theme_ = shownTheme(settings_.themeId);
    header_->setLook(theme_, look().typography);
    empty_->setLook(theme_, look().typography);
    list_->setLook(look());
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
    const auto& sessions = parts_.store.sessions();
    std::vector<CardRow> rows;
    rows.reserve(sessions.size());
    for (const auto& session : sessions) {
        rows.push_back(cardRow(session, settings_.cards, cardContext(session.id)));
    }
    header_->present(parts_.drawer.mode(), summary(sessions));
    list_->setRows(rows, parts_.loop.now());
    list_->setVisible(!sessions.empty());
    empty_->setVisible(sessions.empty());
    keepTime();
}

void PanelView::followDrawer() {
    list_->setPaused(parts_.drawer.animationsPaused());
    header_->present(parts_.drawer.mode(), summary(parts_.store.sessions()));
    if (highlighted_ != parts_.drawer.highlightedId()) {
        highlighted_ = parts_.drawer.highlightedId();
        showSessions();
        if (highlighted_) {
            list_->glideTo(*highlighted_);
        }
    }
    keepTime();
}

void PanelView::keepTime() {
    const bool needed = !parts_.drawer.animationsPaused() && !parts_.store.sessions().empty();
    if (!needed) {
        beat_.reset();
        frames_.reset();
        return;
    }
    if (!beat_) {
        list_->setNow(parts_.loop.now());
        beat_ = parts_.loop.every(1.0, [this] { list_->setNow(parts_.loop.now()); });
        frames_ = parts_.loop.every(frameSeconds, [this] { list_->animate(parts_.loop.now(), frame_++); });
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

void PanelView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        if (onClose) {
            onClose();
        }
        break;
    case Qt::Key_Down:
    case Qt::Key_Up:
        if (const auto cards = list_->cards(); !cards.empty()) {
            cards.front()->setFocus(Qt::TabFocusReason);
        }
        break;
    default:
        event->ignore();
    }
}

void PanelView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    backdrop_.draw(painter, theme_, {edgeShape(QRectF(rect()), drawerRadius), size(), devicePixelRatioF()});
}

} // namespace mimkins
