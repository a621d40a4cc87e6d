#pragma once

#include <QScrollBar>

#include <optional>

namespace mimkins {

/// Moves a scroll bar at once, or gently from where it is.
class GentleScroll {
public:
    /// The bar outlives this.
    explicit GentleScroll(QScrollBar& bar) : bar_(bar) {}

    /// The value at which all between these two places is seen, or its upper part; nothing if it is seen
    /// already.
    std::optional<double> valueShowing(double top, double bottom) const;

    /// Goes there at once; a gentle way ends.
    void jumpTo(double value);
    /// Begins a gentle way there, which `step` goes.
    void glideTo(double value);
    /// Ends a gentle way at its end.
    void finish();
    /// Goes on by so many seconds. True if the end isn't reached.
    bool step(double seconds);

private:
    struct Way {
        double from = 0;
        double to = 0;
        double time = 0;
    };

    QScrollBar& bar_;
    std::optional<Way> way_;
};

} // namespace mimkins
