#pragma once

#include "Presentation/Spring.h"

#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// Where the cards of the list are, and how they glide to where they belong. Lengths in points, y downwards
/// from the top of the list.
class CardFlow {
public:
    static constexpr double spacing = 10;
    static constexpr double padding = 12;
    /// How far a card comes in from the side, and goes out.
    static constexpr double sideways = 36;

    struct Slot {
        std::string id;
        double height = 0;
    };

    class Place {
    public:
        const std::string& id() const { return id_; }

        double y() const { return y_.value(); }

        double height() const { return height_.value(); }

        double targetY() const { return y_.target(); }

        double targetHeight() const { return height_.target(); }

        /// 0 for a card that isn't there, 1 for one that is.
        double opacity() const;

        /// How far the card still is to the side of its place.
        double offsetX() const { return (1 - opacity()) * sideways; }

        bool isLeaving() const { return presence_.target() == 0; }

    private:
        friend class CardFlow;
        std::string id_;
        Spring y_;
        Spring height_;
        Spring presence_;
    };

    enum class Manner { glide, jump };

    /// Gives the cards in their order. Known ones go to their new places from where they are, new ones come
    /// in, and those no longer named go out.
    /// The movement has this feel until the next call.
    void arrange(const std::vector<Slot>& slots, Manner manner, SpringFeel feel = {});

    /// Moves on by so many seconds. True if something still moves.
    bool step(double seconds);

    /// Brings everything to its place at once.
    void finish();

    /// The cards on screen: first those that leave, so that the others lie above them.
    const std::vector<Place>& places() const { return places_; }

    const Place* find(const std::string& id) const;

    /// The height of the list when all has come to rest.
    double contentHeight() const { return contentHeight_; }

private:
    Place take(const Slot& slot, double y, Manner manner);
    void dropGone();

    std::vector<Place> places_;
    double contentHeight_ = 0;
    SpringFeel feel_;
};

} // namespace mimkins
