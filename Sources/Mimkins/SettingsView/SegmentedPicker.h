#pragma once

#include "PanelView/CardLook.h"
#include "SettingsView/GroupWidget.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QWidget>

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace mimkins {

/// One option of a `SegmentedPicker`.
class Segment final : public QRadioButton {
public:
    explicit Segment(const QString& words);

    void setLook(const CardLook& look);

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    /// On one line.
    QSize sizeHint() const override;
    /// With room for the longest word.
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

    bool hitButton(const QPoint& place) const override { return rect().contains(place); }

    /// Arrows are the picker's.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QFont wordsFont() const;

    CardLook look_;
};

/// All options beside one another, of which at most one is chosen; below one another where they don't fit.
/// The arrow keys choose the next.
class SegmentedPicker final : public GroupWidget {
public:
    explicit SegmentedPicker(const std::vector<std::string_view>& options);

    /// Called when the user chooses another option.
    std::function<void(std::size_t)> onChoose;

    /// Shows an option as chosen, or none.
    void setChosen(std::optional<std::size_t> option);
    std::optional<std::size_t> chosen() const;
    void setLook(const CardLook& look);

    const std::vector<Segment*>& segments() const { return segments_; }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    /// All beside one another.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int naturalWidth() const;
    void arrange();
    void arrangeInAColumn();
    void step(int by);

    std::vector<Segment*> segments_;
    QButtonGroup group_;
    CardLook look_;
};

} // namespace mimkins
