#pragma once

#include <QAbstractButton>
#include <QKeyEvent>

namespace mimkins {

/// Qt presses a button with the space bar alone. Presses it with Return as well; true if the key was that.
inline bool pressByReturn(QAbstractButton& button, const QKeyEvent& event) {
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) {
        return false;
    }
    button.click();
    return true;
}

} // namespace mimkins
