#include "App/GifFile.h"

#include "App/Palette.h"

#include <QFile>

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

namespace mimkins {

namespace {

/// One entry is kept for pixels that stay as they were.
constexpr std::size_t paletteColors = 255;
constexpr std::uint8_t unchanged = 255;

using Indices = std::vector<std::uint8_t>;

std::vector<QRgb> sharedPalette(const Film& film) {
    constexpr int mostLookedAt = 48;
    ColorCount colors;
    const int step = std::max(1, film.frames / mostLookedAt);
    for (int frame = 0; frame < film.frames; frame += step) {
        colors.add(film.frame(frame));
    }
    return colors.palette(paletteColors);
}

/// A little noise of a fixed pattern, so that gradients don't fall into steps and still parts don't flicker.
int noise(int x, int y) {
    constexpr std::array<std::array<int, 4>, 4> pattern{
        {{-8, 0, -6, 2}, {4, -4, 6, -2}, {-5, 3, -7, 1}, {7, -1, 5, -3}}};
    return pattern[static_cast<std::size_t>(y % 4)][static_cast<std::size_t>(x % 4)] / 2;
}

Indices indicesOf(const QImage& image, PaletteSearch& search) {
    const QImage plain = image.convertToFormat(QImage::Format_RGB32);
    Indices indices;
    indices.reserve(static_cast<std::size_t>(plain.width()) * static_cast<std::size_t>(plain.height()));
    for (int y = 0; y < plain.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(plain.constScanLine(y));
        for (int x = 0; x < plain.width(); ++x) {
            const auto stirred = [n = noise(x, y)](int level) { return std::clamp(level + n, 0, 255); };
            const QRgb color = line[x];
            indices.push_back(
                search.nearest(qRgb(stirred(qRed(color)), stirred(qGreen(color)), stirred(qBlue(color))))
            );
        }
    }
    return indices;
}

struct CloseFile {
    void operator()(GifFileType* file) const { EGifCloseFile(file, nullptr); }
};

struct FreeColors {
    void operator()(ColorMapObject* colors) const { GifFreeMapObject(colors); }
};

int writeBytes(GifFileType* gif, const GifByteType* bytes, int count) {
    auto* target = static_cast<QFile*>(gif->UserData);
    return static_cast<int>(target->write(reinterpret_cast<const char*>(bytes), count));
}

class GifWriter {
public:
    GifWriter(const std::string& file, const QSize& size)
        : target_(QString::fromStdString(file)), size_(size) {
        if (target_.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            file_.reset(EGifOpen(&target_, writeBytes, nullptr));
        }
        if (file_ != nullptr) {
            EGifSetGifVersion(file_.get(), true);
        }
    }

    bool begin(const std::vector<QRgb>& palette) {
        constexpr int all = 256;
        const std::unique_ptr<ColorMapObject, FreeColors> colors(GifMakeMapObject(all, nullptr));
        for (std::size_t index = 0; index < palette.size(); ++index) {
            colors->Colors[index] = {
                static_cast<GifByteType>(qRed(palette[index])),
                static_cast<GifByteType>(qGreen(palette[index])),
                static_cast<GifByteType>(qBlue(palette[index]))};
        }
        return file_ != nullptr &&
               EGifPutScreenDesc(file_.get(), size_.width(), size_.height(), 8, 0, colors.get()) == GIF_OK &&
               loopForEver();
    }

    /// Shows these pixels for so many hundredths of a second. Those `unchanged` stay as they were.
    bool add(Indices& pixels, int hundredths) {
        GraphicsControlBlock control{};
        control.DisposalMode = DISPOSE_DO_NOT;
        control.DelayTime = hundredths;
        control.TransparentColor = unchanged;
        std::array<GifByteType, 4> bytes{};
        EGifGCBToExtension(&control, bytes.data());
        if (EGifPutExtension(file_.get(), GRAPHICS_EXT_FUNC_CODE, bytes.size(), bytes.data()) != GIF_OK ||
            EGifPutImageDesc(file_.get(), 0, 0, size_.width(), size_.height(), false, nullptr) != GIF_OK) {
            return false;
        }
        const auto width = static_cast<std::size_t>(size_.width());
        for (std::size_t start = 0; start < pixels.size(); start += width) {
            if (EGifPutLine(file_.get(), pixels.data() + start, size_.width()) != GIF_OK) {
                return false;
            }
        }
        return true;
    }

    /// False if not everything reached the file.
    bool end() {
        const bool whole = EGifCloseFile(file_.release(), nullptr) == GIF_OK;
        return target_.flush() && whole;
    }

private:
    bool loopForEver() {
        constexpr std::array<GifByteType, 3> rounds{1, 0, 0};
        return EGifPutExtensionLeader(file_.get(), APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
               EGifPutExtensionBlock(file_.get(), 11, "NETSCAPE2.0") == GIF_OK &&
               EGifPutExtensionBlock(file_.get(), rounds.size(), rounds.data()) == GIF_OK &&
               EGifPutExtensionTrailer(file_.get()) == GIF_OK;
    }

    QFile target_;
    std::unique_ptr<GifFileType, CloseFile> file_; // closed before its target
    QSize size_;
};

/// Leaves out what a frame has in common with the one before.
Indices changesOf(const Indices& before, const Indices& now) {
    Indices changes = now;
    for (std::size_t index = 0; index < before.size(); ++index) {
        if (before[index] == now[index]) {
            changes[index] = unchanged;
        }
    }
    return changes;
}

/// How long a frame stays, so that the film as a whole keeps its time. Viewers slow down below two.
int hundredthsOf(const Film& film, int frame) {
    const auto until = [&film](int count) { return std::lround(count * film.frameSeconds * 100); };
    return std::max(2, static_cast<int>(until(frame + 1) - until(frame)));
}

} // namespace

bool writeGif(const Film& film, const std::string& file) {
    PaletteSearch search(sharedPalette(film));
    GifWriter writer(file, film.frame(0).size());
    if (!writer.begin(search.palette())) {
        return false;
    }
    Indices before;
    for (int frame = 0; frame < film.frames; ++frame) {
        Indices now = indicesOf(film.frame(frame), search);
        Indices changes = changesOf(before, now);
        if (!writer.add(changes, hundredthsOf(film, frame))) {
            return false;
        }
        before = std::move(now);
    }
    return writer.end();
}

} // namespace mimkins
