#include "PanelView/SessionList.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/AccessibleRole.h"
#include "PanelView/CardMenuView.h"

#include <QResizeEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mimkins {

SessionList::SessionList(CardLook look)
    : look_(std::move(look)), canvas_(new QWidget), bar_(new ThinScrollBar), scroll_(*bar_),
      clock_([this](double seconds) { return step(seconds); }) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollBar(bar_);
    setWidget(canvas_);
    canvas_->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    bar_->setTheme(*look_.theme);
    setAccessibleRole(*canvas_, QAccessible::List);
    canvas_->setAccessibleName("Sessions");
}

SessionList::~SessionList() {
    clock_.stop();
}

double SessionList::cardWidth() const {
    return std::max(viewport()->width() - 2 * CardFlow::padding, 1.0);
}

CardView* SessionList::makeCard(const CardRow& row, Date now) {
    auto* card = new CardView(row, look_, now);
    card->setParent(canvas_);
    card->installEventFilter(this);
    card->pill().installEventFilter(this);
    connect(card, &QAbstractButton::clicked, this, [this, id = row.id] {
        if (onOpen) {
            onOpen(id);
        }
    });
    connect(card, &QWidget::customContextMenuRequested, this, [this, card](QPoint place) {
        openMenu(*card, card->mapToGlobal(place));
    });
    card->onMoves = [this, card] {
        if (paused_) {
            card->finish();
        } else {
            clock_.start();
        }
    };
    card->onToggleSubtasks = [this, id = row.id] {
        if (onToggleSubtasks) {
            onToggleSubtasks(id);
        }
    };
    card->show();
    return card;
}

void SessionList::showRow(const CardRow& row, Date now) {
    auto known = entries_.find(row.id);
    if (known == entries_.end()) {
        known = entries_.emplace(row.id, SessionEntry(*makeCard(row, now))).first;
    } else {
        known->second.card().setRow(row, now);
    }
    if (!row.subtasks) {
        return; // what is open shuts as the flow takes its room away
    }
    SessionEntry& entry = known->second;
    if (entry.subtasks() == nullptr) {
        entry.setSubtasks(*makeSubtasks(entry.card()));
    }
    entry.subtasks()->setRows(*row.subtasks, now);
}

SubtaskListView* SessionList::makeSubtasks(CardView& card) {
    auto* subtasks = new SubtaskListView(look_);
    subtasks->setParent(canvas_);
    subtasks->stackUnder(&card);
    subtasks->onHeightChange = [this] {
        keepTabOrder();
        arrange(manner(), SubtaskListView::unfolding);
    };
    subtasks->finishedButton().installEventFilter(this);
    subtasks->setGeometry(0, 0, static_cast<int>(cardWidth()), 0);
    subtasks->show();
    return subtasks;
}

void SessionList::setRows(const std::vector<CardRow>& rows, Date now) {
    order_.clear();
    for (const auto& row : rows) {
        showRow(row, now);
        order_.push_back(row.id);
    }
    keepTabOrder();
    arrange(manner());
}

void SessionList::setLook(const CardLook& look) {
    look_ = look;
    bar_->setTheme(*look_.theme);
    for (auto& [id, entry] : entries_) {
        entry.setLook(look_);
    }
    arrange(CardFlow::Manner::jump);
}

void SessionList::setNow(Date now) {
    bool changes = false;
    for (auto& [id, entry] : entries_) {
        changes = entry.setNow(now) || changes;
    }
    if (changes) {
        arrange(manner()); // a longer time may need a line of its own
    }
}

void SessionList::setPaused(bool paused) {
    paused_ = paused;
    if (!paused) {
        return;
    }
    clock_.stop();
    flow_.finish();
    for (const auto& [id, entry] : entries_) {
        entry.card().finish();
    }
    scroll_.finish();
    showPlaces();
}

void SessionList::animate(Date now, unsigned frame) {
    const QRect seen(0, verticalScrollBar()->value(), viewport()->width(), viewport()->height());
    for (auto& [id, entry] : entries_) {
        entry.animate(now, frame, seen);
    }
}

std::vector<CardView*> SessionList::cards() const {
    std::vector<CardView*> result;
    for (const auto& id : order_) {
        result.push_back(&entries_.at(id).card());
    }
    return result;
}

SubtaskListView* SessionList::subtasks(const std::string& id) const {
    const auto found = entries_.find(id);
    return found != entries_.end() ? found->second.subtasks() : nullptr;
}

CardFlow::Manner SessionList::manner() const {
    return paused_ ? CardFlow::Manner::jump : CardFlow::Manner::glide;
}

void SessionList::arrange(CardFlow::Manner manner, SpringFeel feel) {
    std::vector<CardFlow::Slot> slots;
    slots.reserve(order_.size());
    for (const auto& id : order_) {
        slots.push_back({id, entries_.at(id).measure(cardWidth())});
    }
    flow_.arrange(slots, manner, feel);
    showPlaces();
    if (manner == CardFlow::Manner::glide) {
        startMoving();
    }
}

void SessionList::startMoving() {
    if (!paused_) {
        clock_.start();
    }
}

bool SessionList::step(double seconds) {
    bool moving = flow_.step(seconds);
    for (const auto& [id, entry] : entries_) {
        moving = entry.card().step(seconds) || moving;
    }
    showPlaces();
    return scroll_.step(seconds) || moving;
}

void SessionList::showPlaces() {
    dropGone();
    double bottom = flow_.contentHeight();
    for (const auto& place : flow_.places()) {
        entries_.at(place.id()).place(place, cardWidth());
        if (!place.isLeaving()) {
            bottom = std::max(bottom, place.y() + place.height() + CardFlow::padding);
        }
    }
    canvas_->resize(viewport()->width(), static_cast<int>(std::ceil(bottom)));
}

void SessionList::dropGone() {
    for (auto entry = entries_.begin(); entry != entries_.end();) {
        if (flow_.find(entry->first) == nullptr) {
            entry->second.drop();
            entry = entries_.erase(entry);
        } else {
            ++entry;
        }
    }
}

/// Where the scroll bar has to stand for a card to be seen; nothing if it needn't move.
std::optional<double> SessionList::scrollFor(const std::string& id) const {
    const auto* place = flow_.find(id);
    if (place == nullptr) {
        return std::nullopt;
    }
    const double top = place->targetY() - CardFlow::padding;
    const double bottom = place->targetY() + entries_.at(id).cardHeight() + CardFlow::padding;
    return scroll_.valueShowing(top, bottom);
}

void SessionList::reveal(const std::string& id) {
    if (const auto value = scrollFor(id)) {
        scroll_.jumpTo(*value);
    }
}

void SessionList::glideTo(const std::string& id) {
    if (paused_) {
        reveal(id);
    } else if (const auto value = scrollFor(id)) {
        scroll_.glideTo(*value);
        startMoving();
    }
}

void SessionList::openMenu(const CardView& card, QPoint place) {
    if (menu_ != nullptr) {
        return; // the key that opens it may be told twice
    }
    const CardRow& row = card.row();
    menu_ = new QMenu(this);
    menu_->setAttribute(Qt::WA_DeleteOnClose);
    fillCardMenu(
        *menu_, cardMenu(row.canOpen, row.hasFolder, quickPrompts_),
        [this, id = row.id](const CardChoice& choice) {
            if (const auto chosen = entries_.find(id);
                chosen != entries_.end() && choice.action == CardChoice::Action::open) {
                chosen->second.card().press();
            }
            if (onChoose) {
                onChoose(id, choice);
            }
        }
    );
    menu_->popup(place);
}

void SessionList::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    arrange(CardFlow::Manner::jump);
}

} // namespace mimkins
