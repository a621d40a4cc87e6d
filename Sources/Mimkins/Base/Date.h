#pragma once

#include <compare>

namespace mimkins {

/// A moment: seconds since 1 January 1970, 00:00 UTC. Numbers from outside go in unclamped, so a date may lie
/// absurdly far away; all arithmetic is in double and can't overflow.
struct Date {
    double secondsSince1970 = 0;

    /// A moment before every real one; stands for "never".
    static constexpr Date distantPast() { return {-62'135'769'600.0}; } // 1 January of the year 1

    /// A moment after every real one.
    static constexpr Date distantFuture() { return {64'092'211'200.0}; } // 1 January of the year 4001

    static constexpr Date fromMilliseconds(double milliseconds) { return {milliseconds / 1000.0}; }

    constexpr double milliseconds() const { return secondsSince1970 * 1000.0; }

    friend constexpr auto operator<=>(const Date&, const Date&) = default;

    friend constexpr Date operator+(Date date, double seconds) { return {date.secondsSince1970 + seconds}; }

    friend constexpr Date operator-(Date date, double seconds) { return {date.secondsSince1970 - seconds}; }

    /// Seconds from `right` to `left`.
    friend constexpr double operator-(Date left, Date right) {
        return left.secondsSince1970 - right.secondsSince1970;
    }
};

} // namespace mimkins
