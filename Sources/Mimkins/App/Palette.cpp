#include "App/Palette.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace mimkins {

namespace {

constexpr int channels = 3;

int channel(QRgb color, int index) {
    return index == 0 ? qRed(color) : index == 1 ? qGreen(color) : qBlue(color);
}

/// A colour with the number of pixels it stands for.
struct Entry {
    std::array<double, channels> color{};
    double count = 0;
};

/// Entries that get one colour of the palette, and how far they lie from it along the worst channel.
struct Cluster {
    std::vector<Entry> entries;
    int worst = 0;
    double spread = 0;

    explicit Cluster(std::vector<Entry> given) : entries(std::move(given)) {
        for (int index = 0; index < channels; ++index) {
            const double found = spreadOf(index);
            if (found > spread) {
                spread = found;
                worst = index;
            }
        }
    }

    double mean(int index) const {
        double sum = 0;
        double count = 0;
        for (const Entry& entry : entries) {
            sum += entry.color[static_cast<std::size_t>(index)] * entry.count;
            count += entry.count;
        }
        return count > 0 ? sum / count : 0;
    }

    double spreadOf(int index) const {
        const double middle = mean(index);
        double sum = 0;
        for (const Entry& entry : entries) {
            const double away = entry.color[static_cast<std::size_t>(index)] - middle;
            sum += away * away * entry.count;
        }
        return sum;
    }

    QRgb color() const {
        const auto whole = [this](int index) { return static_cast<int>(std::lround(mean(index))); };
        return qRgb(whole(0), whole(1), whole(2));
    }

    /// The two halves on either side of the mean.
    std::pair<Cluster, Cluster> split() const {
        const auto index = static_cast<std::size_t>(worst);
        const double middle = mean(worst);
        std::vector<Entry> low;
        std::vector<Entry> high;
        for (const Entry& entry : entries) {
            (entry.color[index] < middle ? low : high).push_back(entry);
        }
        return {Cluster(std::move(low)), Cluster(std::move(high))};
    }
};

} // namespace

std::size_t ColorCount::box(QRgb color) {
    constexpr int shift = 8 - bits;
    return static_cast<std::size_t>(qRed(color) >> shift) << (2 * bits) |
           static_cast<std::size_t>(qGreen(color) >> shift) << bits |
           static_cast<std::size_t>(qBlue(color) >> shift);
}

void ColorCount::add(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < plain.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(plain.constScanLine(y));
        for (int x = 0; x < plain.width(); ++x) {
            Box& found = boxes_[box(line[x])];
            for (int index = 0; index < channels; ++index) {
                found.sum[static_cast<std::size_t>(index)] +=
                    static_cast<std::uint64_t>(channel(line[x], index));
            }
            ++found.count;
        }
    }
}

std::vector<QRgb> ColorCount::palette(std::size_t most) const {
    std::vector<Entry> entries;
    for (const Box& box : boxes_) {
        if (box.count > 0) {
            Entry entry;
            entry.count = static_cast<double>(box.count);
            for (std::size_t index = 0; index < channels; ++index) {
                entry.color[index] = static_cast<double>(box.sum[index]) / entry.count;
            }
            entries.push_back(entry);
        }
    }
    std::vector<Cluster> clusters{Cluster(std::move(entries))};
    while (clusters.size() < most) {
        const auto widest =
            std::max_element(clusters.begin(), clusters.end(), [](const Cluster& left, const Cluster& right) {
                return left.spread < right.spread;
            });
        if (widest->spread <= 0) {
            break;
        }
        auto [low, high] = widest->split();
        if (low.entries.empty() || high.entries.empty()) {
            widest->spread = 0; // rounding left one side without any
            continue;
        }
        *widest = std::move(low);
        clusters.push_back(std::move(high));
    }
    std::vector<QRgb> colors;
    for (const Cluster& cluster : clusters) {
        colors.push_back(cluster.color());
    }
    return colors;
}

PaletteSearch::PaletteSearch(std::vector<QRgb> palette)
    : palette_(std::move(palette)), known_(std::size_t{1} << 18, std::int16_t{-1}) {}

std::uint8_t PaletteSearch::nearest(QRgb color) {
    const auto place = static_cast<std::size_t>(qRed(color) >> 2) << 12 |
                       static_cast<std::size_t>(qGreen(color) >> 2) << 6 |
                       static_cast<std::size_t>(qBlue(color) >> 2);
    if (known_[place] < 0) {
        int least = std::numeric_limits<int>::max();
        for (std::size_t index = 0; index < palette_.size(); ++index) {
            int distance = 0;
            // The eye sees green best and blue worst.
            for (const auto& [one, weight] : {std::pair{0, 3}, std::pair{1, 6}, std::pair{2, 2}}) {
                const int away = channel(palette_[index], one) - channel(color, one);
                distance += weight * away * away;
            }
            if (distance < least) {
                least = distance;
                known_[place] = static_cast<std::int16_t>(index);
            }
        }
    }
    return static_cast<std::uint8_t>(known_[place]);
}

} // namespace mimkins
