#include "PanelView/SweepView.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/Labels.h"

#include <QHBoxLayout>

#include <algorithm>
#include <utility>

namespace mimkins {

namespace {

constexpr int padding = 14;
constexpr int spacing = 16;
constexpr int sectionSpacing = 6;
constexpr int footerPadding = 4;

QLabel* label(const QString& words, const CardLook& look, double points) {
    auto* made = new QLabel(words);
    dress(*made, look.typography.systemFont(points), look.theme->subtext);
    return made;
}

} // namespace

SweepView::SweepView(CardLook look) : look_(std::move(look)), bar_(new ThinScrollBar) {
    setVerticalScrollBar(bar_);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    viewport()->setAutoFillBackground(false);
    setAccessibleName("Wrap-up");
    rebuild({});
}

void SweepView::setLook(const CardLook& look) {
    look_ = look;
    rebuild(allClear_ != nullptr ? allClear_->pet().pet().since : Date{});
}

void SweepView::present(const std::optional<SweepReport>& report, bool sweeping, Date now) {
    auto words = report ? std::optional(SweepWords::of(*report, now)) : std::nullopt;
    const bool fits = hasShapeOf(words);
    words_ = std::move(words);
    sweeping_ = sweeping;
    if (fits) {
        showWords();
    } else {
        rebuild(now);
    }
}

bool SweepView::hasShapeOf(const std::optional<SweepWords>& words) const {
    if (words.has_value() != words_.has_value() || !words) {
        return words.has_value() == words_.has_value();
    }
    return words->allClear.has_value() == words_->allClear.has_value() &&
           std::equal(
               words->sections.begin(), words->sections.end(), words_->sections.begin(),
               words_->sections.end(),
               [](const SweepWords::Section& left, const SweepWords::Section& right) {
                   return left.kind == right.kind && left.rows.size() == right.rows.size();
               }
           );
}

void SweepView::rebuild(Date now) {
    heads_.clear();
    rows_.clear();
    checking_ = nullptr;
    allClear_ = nullptr;
    checked_ = nullptr;
    button_ = nullptr;
    auto* canvas = new QWidget;
    column_ = new QVBoxLayout(canvas);
    column_->setContentsMargins(padding, padding, padding, padding);
    column_->setSpacing(spacing);
    if (!words_) {
        checking_ = label(qt::text(SweepWords::checkingSessions), look_, 12);
        column_->addWidget(checking_);
    } else {
        if (words_->allClear) {
            allClear_ = new AllClearView(*words_->allClear, look_, now);
            column_->addWidget(allClear_);
        }
        addSections();
        addFooter();
    }
    column_->addStretch(1);
    // The button that led here may be what goes; it has to outlive its own signal.
    if (auto* former = takeWidget()) {
        former->hide();
        former->deleteLater();
    }
    setWidget(canvas);
    canvas->setAutoFillBackground(false);
    bar_->setTheme(*look_.theme);
    showWords();
}

void SweepView::addSections() {
    for (const auto& section : words_->sections) {
        auto* column = new QVBoxLayout;
        column->setSpacing(sectionSpacing);
        heads_.push_back(new SweepHead(section.kind, look_));
        column->addWidget(heads_.back());
        for (std::size_t index = 0; index < section.rows.size(); ++index) {
            auto* row = new SweepRow(section.kind, look_);
            connect(row, &QAbstractButton::clicked, this, [this, row] {
                if (row->row().link && onOpen) {
                    onOpen(*row->row().link);
                }
            });
            rows_.push_back(row);
            column->addWidget(row);
        }
        column_->addLayout(column);
    }
}

void SweepView::addFooter() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, footerPadding, 0, 0);
    checked_ = label({}, look_, 10);
    button_ = new CheckButton(look_);
    row->addWidget(checked_);
    row->addStretch(1);
    row->addWidget(button_);
    connect(button_, &QAbstractButton::clicked, this, [this] {
        if (onCheck) {
            onCheck();
        }
    });
    column_->addLayout(row);
}

void SweepView::showWords() {
    if (!words_) {
        return;
    }
    if (allClear_ != nullptr && allClear_->words() != *words_->allClear) {
        allClear_->setWords(*words_->allClear);
    }
    auto head = heads_.begin();
    auto row = rows_.begin();
    for (const auto& section : words_->sections) {
        (*head++)->setCount(section.rows.size());
        for (const auto& words : section.rows) {
            (*row++)->setRow(words);
        }
    }
    checked_->setText(qt::text(words_->checked));
    button_->setText(qt::text(SweepWords::button(sweeping_)));
    button_->setAccessibleName(button_->text());
    button_->setAccessibleDescription(checked_->text());
    button_->setEnabled(!sweeping_);
    button_->updateGeometry();
}

void SweepView::animate(Date now) {
    if (allClear_ != nullptr) {
        allClear_->animate(now);
    }
}

} // namespace mimkins
