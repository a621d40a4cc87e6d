#include "PanelView/SessionList.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/CardMenuView.h"
#include "Presentation/PanelFrames.h"

#include <QKeyEvent>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mimkins {

namespace {

/// Between a card and its list of subtasks.
constexpr double subtasksGap = 6;
constexpr double scrollSeconds = 0.35;

} // namespace

SessionList::SessionList(CardLook look)
    : look_(std::move(look)), canvas_(new QWidget), bar_(new ThinScrollBar),
      clock_([this](double seconds) { return step(seconds); }) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollBar(bar_);
    setWidget(canvas_);
    canvas_->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    bar_->setTheme(*look_.theme);
    setAccessibleName("Sessions");
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

SessionList::Entry& SessionList::entry(const CardRow& row, Date now) {
    Entry& entry = entries_[row.id];
    if (entry.card == nullptr) {
        entry.card = makeCard(row, now);
    } else {
        entry.card->setRow(row, now);
    }
    showSubtasks(entry, now);
    return entry;
}

void SessionList::showSubtasks(Entry& entry, Date now) {
    const auto& rows = entry.card->row().subtasks;
    if (!rows) {
        return; // what is open shuts as the flow takes its room away
    }
    if (entry.subtasks == nullptr) {
        entry.subtasks = new SubtaskListView(look_);
        entry.subtasks->setParent(canvas_);
        entry.subtasks->stackUnder(entry.card);
        entry.subtasks->onHeightChange = [this] {
            keepTabOrder();
            arrange(manner());
        };
        entry.subtasks->setGeometry(0, 0, static_cast<int>(cardWidth()), 0);
        entry.subtasks->show();
    }
    entry.subtasks->setRows(*rows, now);
}

void SessionList::setRows(const std::vector<CardRow>& rows, Date now) {
    order_.clear();
    for (const auto& row : rows) {
        entry(row, now);
        order_.push_back(row.id);
    }
    keepTabOrder();
    arrange(manner());
}

void SessionList::keepTabOrder() {
    QWidget* before = nullptr;
    const auto follow = [&before](QWidget* next) {
        if (before != nullptr) {
            setTabOrder(before, next);
        }
        before = next;
    };
    for (const auto& id : order_) {
        const Entry& entry = entries_.at(id);
        follow(entry.card);
        follow(&entry.card->pill());
        if (entry.subtasks != nullptr) {
            follow(&entry.subtasks->finishedButton());
        }
    }
}

void SessionList::setLook(const CardLook& look) {
    look_ = look;
    bar_->setTheme(*look_.theme);
    for (const auto& [id, entry] : entries_) {
        entry.card->setLook(look_);
        if (entry.subtasks != nullptr) {
            entry.subtasks->setLook(look_);
        }
    }
    arrange(CardFlow::Manner::jump);
}

void SessionList::setNow(Date now) {
    for (const auto& [id, entry] : entries_) {
        entry.card->setNow(now);
        if (entry.subtasks != nullptr) {
            entry.subtasks->setNow(now);
        }
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
        entry.card->finish();
    }
    if (scroll_) {
        verticalScrollBar()->setValue(static_cast<int>(std::lround(scroll_->to)));
        scroll_.reset();
    }
    showPlaces();
}

void SessionList::animate(Date now, unsigned frame) {
    const QRect seen(0, verticalScrollBar()->value(), viewport()->width(), viewport()->height());
    for (const auto& [id, entry] : entries_) {
        const bool due = frame % 2 == 0 || !entry.card->isCalm();
        if (due && entry.card->geometry().intersects(seen)) {
            entry.card->animate(now);
        }
        if (entry.subtasks != nullptr && entry.subtasks->geometry().intersects(seen)) {
            const QRect part = seen.intersected(entry.subtasks->geometry());
            entry.subtasks->animate(now, frame, part.translated(-entry.subtasks->pos()));
        }
    }
}

std::vector<CardView*> SessionList::cards() const {
    std::vector<CardView*> result;
    for (const auto& id : order_) {
        result.push_back(entries_.at(id).card);
    }
    return result;
}

SubtaskListView* SessionList::subtasks(const std::string& id) const {
    const auto found = entries_.find(id);
    return found != entries_.end() ? found->second.subtasks : nullptr;
}

double SessionList::slotHeight(Entry& entry) const {
    entry.cardHeight = entry.card->heightFor(cardWidth());
    const bool open = entry.subtasks != nullptr && entry.card->row().subtasks;
    return entry.cardHeight + (open ? subtasksGap + entry.subtasks->heightFor(cardWidth()) : 0);
}

CardFlow::Manner SessionList::manner() const {
    return paused_ ? CardFlow::Manner::jump : CardFlow::Manner::glide;
}

void SessionList::arrange(CardFlow::Manner manner) {
    std::vector<CardFlow::Slot> slots;
    slots.reserve(order_.size());
    for (const auto& id : order_) {
        slots.push_back({id, slotHeight(entries_.at(id))});
    }
    flow_.arrange(slots, manner);
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
        moving = entry.card->step(seconds) || moving;
    }
    showPlaces();
    return stepScroll(seconds) || moving;
}

void SessionList::showPlaces() {
    dropGone();
    double bottom = flow_.contentHeight();
    for (const auto& place : flow_.places()) {
        showPlace(place);
        if (!place.isLeaving()) {
            bottom = std::max(bottom, place.y() + place.height() + CardFlow::padding);
        }
    }
    canvas_->resize(viewport()->width(), static_cast<int>(std::ceil(bottom)));
}

void SessionList::showPlace(const CardFlow::Place& place) {
    constexpr int room = CardView::shadowRoom;
    Entry& entry = entries_.at(place.id());
    const double left = CardFlow::padding + place.offsetX();
    const double whole = std::max(place.height(), 1.0);
    const double height = entry.subtasks != nullptr ? std::min(whole, entry.cardHeight) : whole;
    const QRectF frame(left, place.y(), cardWidth(), height);
    entry.card->setGeometry(frame.adjusted(-room, -room, room, room).toRect());
    entry.card->setOpacity(place.opacity());
    if (entry.subtasks == nullptr) {
        return;
    }
    const double rest = whole - entry.cardHeight - subtasksGap;
    if (rest <= 0 && !entry.card->row().subtasks) {
        entry.subtasks->hide();
        entry.subtasks->deleteLater();
        entry.subtasks = nullptr;
        return;
    }
    entry.subtasks->setGeometry(
        QRectF(left, frame.bottom() + subtasksGap, cardWidth(), std::max(rest, 0.0)).toRect()
    );
}

void SessionList::drop(Entry& entry) {
    entry.card->hide();
    entry.card->deleteLater();
    if (entry.subtasks != nullptr) {
        entry.subtasks->hide();
        entry.subtasks->deleteLater();
    }
}

void SessionList::dropGone() {
    for (auto entry = entries_.begin(); entry != entries_.end();) {
        if (flow_.find(entry->first) == nullptr) {
            drop(entry->second);
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
    const double value = verticalScrollBar()->value();
    const double view = viewport()->height();
    const double top = place->targetY() - CardFlow::padding;
    const double bottom = place->targetY() + entries_.at(id).cardHeight + CardFlow::padding;
    if (top < value) {
        return top;
    }
    return bottom > value + view ? std::optional(bottom - view) : std::nullopt;
}

void SessionList::reveal(const std::string& id) {
    if (const auto value = scrollFor(id)) {
        scroll_.reset();
        verticalScrollBar()->setValue(static_cast<int>(*value));
    }
}

void SessionList::glideTo(const std::string& id) {
    if (paused_) {
        reveal(id);
    } else if (const auto value = scrollFor(id)) {
        scroll_ = Scroll{static_cast<double>(verticalScrollBar()->value()), *value, 0};
        startMoving();
    }
}

bool SessionList::stepScroll(double seconds) {
    if (!scroll_) {
        return false;
    }
    scroll_->time += seconds;
    const double fraction = std::min(scroll_->time / scrollSeconds, 1.0);
    const double way = scroll_->from + (scroll_->to - scroll_->from) * panel::easeInEaseOut(fraction);
    verticalScrollBar()->setValue(static_cast<int>(std::lround(way)));
    if (fraction >= 1) {
        scroll_.reset();
    }
    return scroll_.has_value();
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
                chosen->second.card->press();
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

bool SessionList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        const auto* card = dynamic_cast<CardView*>(watched);
        if (card == nullptr && watched != nullptr) {
            card = dynamic_cast<CardView*>(watched->parent()); // of its button
        }
        if (card != nullptr) {
            reveal(card->row().id);
        }
    }
    return QScrollArea::eventFilter(watched, event);
}

void SessionList::moveFocus(int by) {
    const auto all = cards();
    if (all.empty()) {
        return;
    }
    const auto focused =
        std::find_if(all.begin(), all.end(), [](CardView* card) { return card->hasFocus(); });
    const int last = static_cast<int>(all.size()) - 1;
    const int present =
        focused != all.end() ? static_cast<int>(focused - all.begin()) : (by > 0 ? -1 : last + 1);
    const int next = std::clamp(present + by, 0, last);
    all.at(static_cast<std::size_t>(next))->setFocus(Qt::TabFocusReason);
}

void SessionList::keyPressEvent(QKeyEvent* event) {
    constexpr int all = 1 << 20;
    switch (event->key()) {
    case Qt::Key_Down:
        moveFocus(1);
        break;
    case Qt::Key_Up:
        moveFocus(-1);
        break;
    case Qt::Key_Home:
        moveFocus(-all);
        break;
    case Qt::Key_End:
        moveFocus(all);
        break;
    default:
        event->ignore();
    }
}

} // namespace mimkins
