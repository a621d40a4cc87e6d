/// Draws every routine at two sizes with our own rasteriser, and the same recorded commands with cairo and
/// with the interface toolkit's painter, and says how long a frame takes and how far the pictures differ.

#include "CairoCanvas.h"

#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Qt/QtGlyphOutlines.h"
#include "Drawing/RasterCanvas.h"
#include "Drawing/RecordingCanvas.h"
#include "Pet/PetPainter.h"
#include "Pet/PosterTime.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>
#include <numeric>
#include <vector>

namespace {

std::atomic<long> allocations{0};

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace mimkins {

namespace {

constexpr int framesOfRoutine = 24;
constexpr int rounds = 9;
constexpr double frameRate = 24;

PetFrame frameAt(Routine routine, int index) {
    PetFrame frame =
        petFrame({PetAction::idle, 168 + static_cast<std::uint64_t>(routine) * 37, {}, 0, false}, {}, {});
    frame.t = posterTime(routine) + index / frameRate;
    frame.elapsed = 1800;
    frame.effort = routine == Routine::guruHover ? 2 : routine >= Routine::flyingKick ? 1 : 0;
    return frame;
}

void drawRoutine(Canvas& canvas, Routine routine, int index, double size) {
    const PetFrame frame = frameAt(routine, index);
    PetPainter painter(GraphicsContext(canvas), size, size, frame);
    Cue cue;
    cue.routine = routine;
    if (takesPhase(routine)) {
        cue.phase = frame.t;
    } else if (routine == Routine::wallClock) {
        cue.phase = 30;
    }
    painter.perform(cue);
}

QImage clearImage(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

Bitmap bitmapOf(QImage& image) {
    return {
        reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
        static_cast<int>(image.bytesPerLine() / 4)};
}

/// The least of several rounds over all frames, in microseconds a frame.
double microseconds(const std::function<void(int)>& drawFrame) {
    using Clock = std::chrono::steady_clock;
    double least = 1e9;
    for (int round = 0; round < rounds; ++round) {
        const auto start = Clock::now();
        for (int index = 0; index < framesOfRoutine; ++index) {
            drawFrame(index);
        }
        const std::chrono::duration<double, std::micro> taken = Clock::now() - start;
        least = std::min(least, taken.count() / framesOfRoutine);
    }
    return least;
}

double difference(const QImage& left, const QImage& right) {
    double sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        const uchar* first = left.constScanLine(y);
        const uchar* second = right.constScanLine(y);
        for (int byte = 0; byte < 4 * left.width(); ++byte) {
            sum += std::abs(first[byte] - second[byte]);
        }
    }
    return sum / (4.0 * left.width() * left.height());
}

/// Passes everything on with paths of curves alone.
class CurvesCanvas final : public Canvas {
public:
    explicit CurvesCanvas(Canvas& next) : next_(next) {}

    void fill(const Path& path, const Shading& shading, const DrawingState& state) override {
        next_.fill(path.flattenedToCurves(), shading, state);
    }

    void stroke(const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state)
        override {
        next_.stroke(path.flattenedToCurves(), shading, style, state);
    }

    /// A text becomes a fill of its glyphs.
    void draw(const TextRun& text, Point center, const DrawingState& state) override {
        DrawingState placed = state;
        placed.transform = placed.transform.after(Transform::translation(center.x, center.y))
                               .after(Transform::scaling(text.size, text.size));
        next_.fill(QtGlyphOutlines::shared().outline(text), text.color, placed);
    }

private:
    Canvas& next_;
};

struct Row {
    Routine routine;
    double ours = 0;
    double cairo = 0;
    double painter = 0;
    double differs = 0;
    std::size_t commands = 0;
};

Row measure(Routine routine, int size) {
    auto& glyphs = QtGlyphOutlines::shared();
    std::vector<RecordingCanvas> recorded(framesOfRoutine);
    std::vector<RecordingCanvas> asCurves(framesOfRoutine);
    for (int index = 0; index < framesOfRoutine; ++index) {
        const auto frame = static_cast<std::size_t>(index);
        drawRoutine(recorded[frame], routine, index, size);
        CurvesCanvas curves(asCurves[frame]);
        recorded[frame].replay(curves);
    }
    QImage ours = clearImage(size);
    QImage theirs = clearImage(size);
    QImage painted = clearImage(size);
    const auto replayInto = [&](Canvas& canvas, int index) {
        recorded[static_cast<std::size_t>(index)].replay(canvas);
    };
    Row row{routine};
    row.commands = recorded.front().commands().size();
    row.ours = microseconds([&](int index) {
        ours.fill(Qt::transparent);
        RasterCanvas canvas(bitmapOf(ours), 1, ColorScheme::dark, &glyphs);
        replayInto(canvas, index);
    });
    row.cairo = microseconds([&](int index) {
        theirs.fill(Qt::transparent);
        cairo_surface_t* surface = cairo_image_surface_create_for_data(
            theirs.bits(), CAIRO_FORMAT_ARGB32, size, size, static_cast<int>(theirs.bytesPerLine())
        );
        cairo_t* cairo = cairo_create(surface);
        CairoCanvas canvas(cairo, ColorScheme::dark, &glyphs);
        asCurves[static_cast<std::size_t>(index)].replay(canvas);
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
    });
    row.painter = microseconds([&](int index) {
        painted.fill(Qt::transparent);
        QPainter painter(&painted);
        PainterCanvas canvas(painter, ColorScheme::dark);
        replayInto(canvas, index);
    });
    row.differs = difference(ours, theirs);
    return row;
}

double median(std::vector<double> values) {
    std::nth_element(
        values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end()
    );
    return values[values.size() / 2];
}

void report(int size) {
    std::vector<Row> rows;
    for (std::size_t index = 0; index < routineCount; ++index) {
        rows.push_back(measure(static_cast<Routine>(index), size));
    }
    const auto all = [&](auto member) {
        std::vector<double> values;
        for (const Row& row : rows) {
            values.push_back(row.*member);
        }
        return values;
    };
    std::sort(rows.begin(), rows.end(), [](const Row& left, const Row& right) {
        return left.ours > right.ours;
    });
    std::printf("%d pixels, microseconds a frame\n", size);
    std::printf("  %-22s %8s %8s %8s %8s %9s\n", "", "ours", "cairo", "painter", "shapes", "differs");
    const auto show = [](std::string_view name, const Row& row) {
        std::printf(
            "  %-22.*s %8.1f %8.1f %8.1f %8zu %9.3f\n", static_cast<int>(name.size()), name.data(), row.ours,
            row.cairo, row.painter, row.commands, row.differs
        );
    };
    for (std::size_t index = 0; index < 5; ++index) {
        show(name(rows[index].routine), rows[index]);
    }
    const double ours = median(all(&Row::ours));
    const double cairo = median(all(&Row::cairo));
    const auto differences = all(&Row::differs);
    const auto worst = std::max_element(rows.begin(), rows.end(), [](const Row& left, const Row& right) {
        return left.differs < right.differs;
    });
    show(name(worst->routine), *worst);
    std::printf("  %-22s %8.1f %8.1f %8.1f\n", "median of all", ours, cairo, median(all(&Row::painter)));
    std::printf(
        "  ours / cairo: %.2f of the median; mean difference of pixels: %.3f, at worst %.3f of 255\n",
        ours / cairo,
        std::accumulate(differences.begin(), differences.end(), 0.0) /
            static_cast<double>(differences.size()),
        *std::max_element(differences.begin(), differences.end())
    );
}

/// Ten pets through a second to warm up and ten more seconds that are counted.
void countAllocations() {
    QImage image = clearImage(62);
    const auto second = [&](int from) {
        for (int index = from; index < from + static_cast<int>(frameRate); ++index) {
            for (std::size_t routine = 0; routine < routineCount; ++routine) {
                image.fill(Qt::transparent);
                RasterCanvas canvas(bitmapOf(image), 1, ColorScheme::dark, &QtGlyphOutlines::shared());
                drawRoutine(canvas, static_cast<Routine>(routine), index, 62);
            }
        }
    };
    second(0);
    const long before = allocations;
    for (int at = 1; at <= 10; ++at) {
        second(at * static_cast<int>(frameRate));
    }
    const double frames = 10 * frameRate * static_cast<double>(routineCount);
    std::printf("allocations after the first second: %ld in %.0f frames\n", allocations - before, frames);
}

} // namespace

} // namespace mimkins

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, words);
    mimkins::report(62);
    mimkins::report(124);
    mimkins::countAllocations();
    return 0;
}
