#pragma once

#include "PanelView/CardLook.h"
#include "Presentation/SweepWords.h"

#include <QAbstractButton>

namespace mimkins {

/// The head of one of the four sections: its symbol, its title and how many rows it has.
class SweepHead final : public QWidget {
public:
    SweepHead(SweepWords::Kind kind, const CardLook& look);

    void setCount(std::size_t count);

    /// The words as they are read, such as "Waiting on you 2".
    QString words() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SweepWords::Kind kind_;
    CardLook look_;
    std::size_t count_ = 0;
};

/// One line of a section. A press opens its session.
class SweepRow final : public QAbstractButton {
public:
    SweepRow(SweepWords::Kind kind, const CardLook& look);

    const SweepWords::Row& row() const { return row_; }

    void setRow(const SweepWords::Row& row);

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double textWidth(double width) const;
    double linesHeight(double width) const;
    QFont titleFont() const;
    QFont detailFont() const;
    void drawGround(QPainter& painter) const;
    void drawWords(QPainter& painter) const;
    const Color& color() const;

    SweepWords::Kind kind_;
    CardLook look_;
    SweepWords::Row row_;
};

} // namespace mimkins
