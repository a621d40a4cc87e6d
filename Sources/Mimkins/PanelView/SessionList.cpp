#include "PanelView/SessionList.h"

#include "Drawing/Qt/Conversions.h"

#include <QKeyEvent>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mimkins {

namespace {

QString scrollBarStyle(const PetTheme& theme) {
    const QString handle = qt::color(theme.text.faded(0.22)).name(QColor::HexArgb);
    return QString("QScrollBar:vertical { background: transparent; width: 6px; margin: 2px 0; }"
                   "QScrollBar::handle:vertical { background: %1; border-radius: 3px; min-height: 24px; }"
                   "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
                   "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }")
        .arg(handle);
}

} // namespace

SessionList::SessionList(CardLook look)
    : look_(std::move(look)), canvas_(new QWidget), clock_([this](double seconds) { return step(seconds); }) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(canvas_);
    canvas_->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setStyleSheet(scrollBarStyle(*look_.theme));
    setAccessibleName("Sessions");
}

SessionList::~SessionList() {
    clock_.stop();
}

double SessionList::cardWidth() const {
    return std::max(viewport()->width() - 2 * CardFlow::padding, 1.0);
}

CardView* SessionList::card(const CardRow& row, Date now) {
    auto& card = cards_[row.id];
    if (card == nullptr) {
        card = new CardView(row, look_, now);
        card->setParent(canvas_);
        card->installEventFilter(this);
        connect(card, &QAbstractButton::clicked, this, [this, id = row.id] {
            if (onOpen) {
                onOpen(id);
            }
        });
        card->show();
    } else {
        card->setRow(row, now);
    }
    return card;
}

void SessionList::setRows(const std::vector<CardRow>& rows, Date now) {
    order_.clear();
    QWidget* before = nullptr;
    for (const auto& row : rows) {
        auto* shown = card(row, now);
        if (before != nullptr) {
            setTabOrder(before, shown);
        }
        before = shown;
        order_.push_back(row.id);
    }
    arrange(paused_ ? CardFlow::Manner::jump : CardFlow::Manner::glide);
}

void SessionList::setLook(const CardLook& look) {
    look_ = look;
    verticalScrollBar()->setStyleSheet(scrollBarStyle(*look_.theme));
    for (const auto& [id, card] : cards_) {
        card->setLook(look_);
    }
    arrange(CardFlow::Manner::jump);
}

void SessionList::setNow(Date now) {
    for (const auto& [id, card] : cards_) {
        card->setNow(now);
    }
}

void SessionList::setPaused(bool paused) {
    paused_ = paused;
    if (paused) {
        clock_.stop();
        flow_.finish();
        showPlaces();
    }
}

void SessionList::animate(Date now, unsigned frame) {
    const QRect seen(0, verticalScrollBar()->value(), viewport()->width(), viewport()->height());
    for (const auto& [id, card] : cards_) {
        const bool due = frame % 2 == 0 || !card->isCalm();
        if (due && card->geometry().intersects(seen)) {
            card->animate(now);
        }
    }
}

std::vector<CardView*> SessionList::cards() const {
    std::vector<CardView*> result;
    for (const auto& id : order_) {
        result.push_back(cards_.at(id));
    }
    return result;
}

void SessionList::arrange(CardFlow::Manner manner) {
    std::vector<CardFlow::Slot> slots;
    slots.reserve(order_.size());
    for (const auto& id : order_) {
        slots.push_back({id, cards_.at(id)->heightFor(cardWidth())});
    }
    flow_.arrange(slots, manner);
    showPlaces();
    if (manner == CardFlow::Manner::glide && !paused_) {
        clock_.start();
    }
}

bool SessionList::step(double seconds) {
    const bool moving = flow_.step(seconds);
    showPlaces();
    return moving;
}

void SessionList::showPlaces() {
    dropGone();
    double bottom = flow_.contentHeight();
    for (const auto& place : flow_.places()) {
        auto* card = cards_.at(place.id());
        const QRectF frame(
            CardFlow::padding + place.offsetX(), place.y(), cardWidth(), std::max(place.height(), 1.0)
        );
        constexpr int room = CardView::shadowRoom;
        card->setGeometry(frame.adjusted(-room, -room, room, room).toRect());
        card->setOpacity(place.opacity());
        if (!place.isLeaving()) {
            bottom = std::max(bottom, frame.bottom() + CardFlow::padding);
        }
    }
    canvas_->resize(viewport()->width(), static_cast<int>(std::ceil(bottom)));
}

void SessionList::dropGone() {
    for (auto entry = cards_.begin(); entry != cards_.end();) {
        if (flow_.find(entry->first) == nullptr) {
            entry->second->hide();
            entry->second->deleteLater();
            entry = cards_.erase(entry);
        } else {
            ++entry;
        }
    }
}

void SessionList::reveal(const std::string& id) {
    const auto* place = flow_.find(id);
    if (place == nullptr) {
        return;
    }
    auto* bar = verticalScrollBar();
    const double top = place->targetY() - CardFlow::padding;
    const double bottom = place->targetY() + place->targetHeight() + CardFlow::padding;
    if (top < bar->value()) {
        bar->setValue(static_cast<int>(top));
    } else if (bottom > bar->value() + viewport()->height()) {
        bar->setValue(static_cast<int>(bottom) - viewport()->height());
    }
}

void SessionList::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    arrange(CardFlow::Manner::jump);
}

bool SessionList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        if (const auto* card = dynamic_cast<CardView*>(watched)) {
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
