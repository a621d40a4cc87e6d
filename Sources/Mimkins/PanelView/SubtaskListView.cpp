#include "PanelView/SubtaskListView.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/AccessibleRole.h"
#include "PanelView/Chip.h"
#include "Presentation/Accent.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mimkins {

namespace {

constexpr double lead = 24;
constexpr double spacing = 6;
constexpr double railX = 11;
constexpr double railWidth = 2;
constexpr double emptyPadding = 6;
constexpr int mostEmptyLines = 12;

} // namespace

SubtaskListView::SubtaskListView(CardLook look)
    : look_(std::move(look)), more_(new SubtaskSummary(SubtaskSummary::Kind::words, look_)),
      finished_(new SubtaskSummary(SubtaskSummary::Kind::button, look_)) {
    more_->setParent(this);
    finished_->setParent(this);
    setAccessibleRole(*this, QAccessible::List);
    setAccessibleName("Subtasks");
    connect(finished_, &QAbstractButton::clicked, this, [this] { toggleFinished(); });
}

void SubtaskListView::toggleFinished() {
    showsFinished_ = !showsFinished_;
    isFolding_ = !showsFinished_ && onHeightChange;
    bringUp(now_);
    if (onHeightChange) {
        onHeightChange();
    }
    showUnfolding();
}

/// The finished ones fade as far as there is room for them, and go when there is none.
void SubtaskListView::showUnfolding() {
    const double shut = restingHeight(width(), running_);
    if (isFolding_ && height() <= std::ceil(shut)) {
        isFolding_ = false;
        bringUp(now_);
    }
    const double open = restingHeight(width(), shown_.size());
    const double share = open > shut ? std::clamp((height() - shut) / (open - shut), 0.0, 1.0) : 1;
    for (std::size_t index = running_; index < shown_.size(); ++index) {
        shown_[index]->setOpacity(share);
    }
}

SubtaskRowView* SubtaskListView::row(const SubtaskRow& row, Date now) {
    auto& view = known_[row.id];
    if (view == nullptr) {
        view = new SubtaskRowView(row, look_, now);
        view->setParent(this);
        view->show();
    } else {
        view->setRow(row, now);
    }
    return view;
}

void SubtaskListView::setRows(const SubtaskRows& rows, Date now) {
    if (content_ != rows) {
        content_ = rows;
        bringUp(now);
    }
    setNow(now);
}

/// Brings the rows in line with the content.
void SubtaskListView::bringUp(Date now) {
    shown_.clear();
    for (const auto& running : content_.running) {
        shown_.push_back(row(running, now));
    }
    running_ = shown_.size();
    for (const auto& finished : content_.finished) {
        if (showsFinished_ || isFolding_) {
            shown_.push_back(row(finished, now));
        }
    }
    std::erase_if(known_, [this](const auto& entry) {
        const bool gone = std::find(shown_.begin(), shown_.end(), entry.second) == shown_.end();
        if (gone) {
            entry.second->hide();
            entry.second->deleteLater();
        }
        return gone;
    });
    more_->setVisible(content_.moreRunning.has_value());
    more_->present(Symbol::ellipsisCircle, content_.moreRunning.value_or(""));
    finished_->setVisible(content_.finishedLabel.has_value());
    finished_->present(finishedSymbol(showsFinished_), content_.finishedLabel.value_or(""));
    finished_->setAccessibleDescription(qt::text(finishedHelp(showsFinished_)));
    setAccessibleDescription(qt::text(content_.empty.value_or("")));
    place();
    update();
}

void SubtaskListView::setLook(const CardLook& look) {
    look_ = look;
    for (const auto& [id, view] : known_) {
        view->setLook(look_);
    }
    more_->setLook(look_);
    finished_->setLook(look_);
    place();
    update();
}

bool SubtaskListView::setNow(Date now) {
    now_ = now;
    bool changed = false;
    for (auto* view : shown_) {
        changed = view->setNow(now) || changed;
    }
    return changed;
}

void SubtaskListView::animate(Date now, unsigned frame, const QRect& seen) {
    for (auto* view : shown_) {
        const bool due = frame % 2 == 0 || !view->isCalm();
        if (due && view->geometry().intersects(seen)) {
            view->animate(now);
        }
    }
}

QFont SubtaskListView::emptyFont() const {
    return look_.typography.font(11);
}

QStringList SubtaskListView::emptyLines(double width) const {
    return fittedLines(qt::text(*content_.empty), emptyFont(), std::max(width - lead, 1.0), mostEmptyLines);
}

double SubtaskListView::heightFor(double width) const {
    if (content_.empty) {
        const double line = std::ceil(QFontMetricsF(emptyFont()).height());
        return 2 * emptyPadding + line * static_cast<double>(emptyLines(width).size());
    }
    return restingHeight(width, isFolding_ ? running_ : shown_.size());
}

/// The height with the first of the rows.
double SubtaskListView::restingHeight(double width, std::size_t rows) const {
    double height = 0;
    const auto add = [&height](double item) { height += (height > 0 ? spacing : 0) + item; };
    for (std::size_t index = 0; index < rows; ++index) {
        add(shown_[index]->heightFor(width - lead));
    }
    if (content_.moreRunning) {
        add(more_->heightNeeded());
    }
    if (content_.finishedLabel) {
        add(finished_->heightNeeded());
    }
    return height;
}

/// Stands the items below one another. The list's own height plays no part: while it opens and shuts, it
/// shows the upper part of what it holds.
void SubtaskListView::place() {
    const double room = std::max(width() - lead, 1.0);
    double y = 0;
    const auto put = [&](QWidget* item, double height) {
        item->setGeometry(QRectF(lead, y, room, height).toRect());
        y += height + spacing;
    };
    for (std::size_t index = 0; index < running_; ++index) {
        put(shown_[index], shown_[index]->heightFor(room));
    }
    if (content_.moreRunning) {
        put(more_, more_->heightNeeded());
    }
    if (content_.finishedLabel) {
        put(finished_, finished_->heightNeeded());
    }
    for (std::size_t index = running_; index < shown_.size(); ++index) {
        put(shown_[index], shown_[index]->heightFor(room));
    }
}

void SubtaskListView::resizeEvent(QResizeEvent*) {
    place();
    showUnfolding();
}

void SubtaskListView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF rail(railX, 0, railWidth, height());
    QLinearGradient fade(rail.topLeft(), rail.bottomLeft());
    fade.setColorAt(0, qt::color(accent(*look_.theme).faded(0.5)));
    fade.setColorAt(1, qt::color(accent(*look_.theme).faded(0.1)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(fade);
    painter.drawRoundedRect(rail, railWidth / 2, railWidth / 2);
    if (!content_.empty) {
        return;
    }
    painter.setFont(emptyFont());
    painter.setPen(qt::color(look_.theme->subtext));
    const double line = std::ceil(QFontMetricsF(emptyFont()).height());
    double y = emptyPadding;
    for (const auto& words : emptyLines(width())) {
        painter.drawText(QRectF(lead, y, width() - lead, line), Qt::AlignLeft | Qt::TextSingleLine, words);
        y += line;
    }
}

} // namespace mimkins
