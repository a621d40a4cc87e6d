#pragma once

#include <QImage>
#include <QWidget>

#include <functional>

namespace mimkins {

/// The place of a pet that hides all that lies beneath it, so that a new frame has nothing else drawn again.
class PetStage final : public QWidget {
public:
    struct Parts {
        /// What lies beneath the stage, of its size in device pixels. Asked for when the stage has moved or
        /// its ground has changed.
        std::function<QImage()> ground;
        /// The present frame on this ground; it lasts until the next call.
        std::function<const QImage&(const QImage& ground)> frame;
    };

    PetStage(QWidget* parent, Parts parts);

    /// Something beneath looks different now.
    void groundChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Parts parts_;
    QImage ground_; ///< none if it isn't known
    QPoint place_;  ///< in the window, where the ground was taken
};

} // namespace mimkins
