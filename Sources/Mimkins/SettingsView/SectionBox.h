#pragma once

#include "SettingsView/GroupWidget.h"
#include "SettingsView/Words.h"

#include <QVBoxLayout>
#include <QWidget>

#include <string_view>

namespace mimkins {

/// A section of the screen: its title, and below it a box with its rows.
class SectionBox final : public GroupWidget {
public:
    explicit SectionBox(std::string_view title);

    /// Puts a row, or another part, below the last one; words stand closer to it than others, whose margin
    /// at the top is set. It is taken over.
    void add(QWidget& row);
    void setLook(const CardLook& look);

    QString title() const { return accessibleName(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Words* title_;
    QVBoxLayout* rows_;
    CardLook look_;
};

} // namespace mimkins
