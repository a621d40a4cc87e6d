#pragma once

#include "PanelView/Typography.h"
#include "Presentation/SummaryColors.h"

#include <QLabel>

namespace mimkins {

/// The summary in its capsule. Gives way to the title when there is little room, and shortens its words.
class SummaryLabel final : public QLabel {
public:
    SummaryLabel();

    void setSummary(const Summary& summary, const PetTheme& theme, const Typography& typography);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// As many of the words as there is room for: all, or what they count, or the number alone.
    QString shownWords() const;

    QColor ink_;
    QColor fill_;
};

} // namespace mimkins
