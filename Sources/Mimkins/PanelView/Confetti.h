#pragma once

#include "Base/Handle.h"
#include "Platform/RunLoop.h"

#include <QWidget>

namespace mimkins {

/// A shower of paper over the whole of its parent. It takes no clicks.
class Confetti final : public QWidget {
public:
    /// Both outlive it.
    Confetti(QWidget* parent, RunLoop& loop);

    /// Falls while there is a party, and stands while nobody sees it.
    void setParty(bool party);
    void setPaused(bool paused);

    /// The moment shown, in seconds since 1 January 2001.
    double moment() const { return moment_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keepTime();
    void advance();

    RunLoop& loop_;
    bool party_ = false;
    bool paused_ = true;
    double moment_ = 0;
    Handle frames_;
};

} // namespace mimkins
