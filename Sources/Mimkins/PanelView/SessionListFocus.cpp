// The keyboard's way through the list of cards.

#include "PanelView/CardKeys.h"
#include "PanelView/SessionList.h"

#include <QKeyEvent>

#include <algorithm>

namespace mimkins {

void SessionList::keepTabOrder() {
    std::vector<QWidget*> stops;
    for (const auto& id : order_) {
        const auto own = entries_.at(id).tabStops();
        stops.insert(stops.end(), own.begin(), own.end());
    }
    chainTabOrder(stops);
}

bool SessionList::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::FocusIn && widget != nullptr) {
        const auto of = [widget](const auto& entry) {
            const CardView& card = entry.second.card();
            return &card == widget || card.isAncestorOf(widget);
        };
        if (const auto found = std::find_if(entries_.begin(), entries_.end(), of); found != entries_.end()) {
            reveal(found->first);
        } else {
            ensureWidgetVisible(widget, 0, static_cast<int>(CardFlow::padding));
        }
    }
    return QScrollArea::eventFilter(watched, event);
}

std::optional<std::size_t> SessionList::focusedCard() const {
    const auto found = std::find_if(order_.begin(), order_.end(), [this](const std::string& id) {
        return entries_.at(id).hasFocus();
    });
    return found != order_.end() ? std::optional(static_cast<std::size_t>(found - order_.begin()))
                                 : std::nullopt;
}

void SessionList::keyPressEvent(QKeyEvent* event) {
    if (const auto next = cardAfterKey(event->key(), focusedCard(), order_.size())) {
        entries_.at(order_[*next]).card().setFocus(Qt::TabFocusReason);
    } else {
        event->ignore();
    }
}

} // namespace mimkins
