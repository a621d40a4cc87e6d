#include "Background/MarkedLines.h"

#include "Background/SearchedBlocks.h"

#include <algorithm>
#include <array>
#include <span>

namespace mimkins {

namespace {

/// So many bytes at the end of a block may be the beginning of a marker.
constexpr std::size_t longestOverlap = longestMarker - 1;

/// The last newline's place, or `npos`. It goes back in steps that are searched forward, which is far faster
/// than to look at byte after byte.
std::size_t lastNewline(std::string_view view) {
    constexpr std::size_t step = 512;
    for (std::size_t end = view.size(); end > 0;) {
        const std::size_t begin = end > step ? end - step : 0;
        std::size_t last = std::string_view::npos;
        const auto part = view.substr(0, end);
        for (auto place = part.find('\n', begin); place != part.npos; place = part.find('\n', place + 1)) {
            last = place;
        }
        if (last != std::string_view::npos) {
            return last;
        }
        end = begin;
    }
    return std::string_view::npos;
}

} // namespace

/// One pass over a range: what is known of the line that is being read.
struct MarkedLines::Pass {
    const RandomAccessFile& file;
    const Visit& visit;
    bool skipping;           ///< the current line is passed over
    std::uint64_t lineBegin; ///< the current line's position in the file: all before it is consumed
    std::uint64_t position;  ///< all before it is read
    Markers markers{};       ///< those of the current line so far
    bool failed = false;
    /// The end of what is read, as far as a marker of the current line may begin there.
    std::array<char, longestOverlap> kept{};
    std::size_t overlap = 0; ///< how much is kept

    /// The line ends outside of the block in which it began, so it is read once more, whole.
    void visitFromFile(std::uint64_t lineEnd) {
        if (lineEnd - lineBegin > longestLine) {
            return;
        }
        std::string line(static_cast<std::size_t>(lineEnd - lineBegin), '\0');
        const auto count = file.read(lineBegin, line);
        if (count != line.size() || line.find('\n') != std::string::npos) {
            failed = true; // The file is no longer what it was a moment ago.
            return;
        }
        visit(line, markers);
    }

    /// The current line ends at `end` in the view, which begins at `viewBegin` in the file.
    void endLine(std::string_view view, std::uint64_t viewBegin, std::size_t end) {
        if (!markers.empty() && !skipping) {
            if (lineBegin >= viewBegin) {
                const auto begin = static_cast<std::size_t>(lineBegin - viewBegin);
                visit(view.substr(begin, end - begin), markers);
            } else {
                visitFromFile(viewBegin + end);
            }
        }
        startLine(viewBegin + end + 1);
    }

    void startLine(std::uint64_t begin) {
        lineBegin = begin;
        markers = {};
        skipping = false;
    }

    /// What is kept and the block behind it, which has room in front.
    std::string_view viewOf(char* block, std::size_t count) const {
        std::copy_n(kept.begin(), overlap, block - overlap);
        return {block - overlap, overlap + count};
    }

    /// Takes such a view, and the hits in it.
    void takeBlock(std::string_view view, std::span<const MarkerHit> hits) {
        take(view, position - overlap, hits);
        position += view.size() - overlap;
        overlap = static_cast<std::size_t>(
            std::min<std::uint64_t>({longestOverlap, view.size(), position - lineBegin})
        );
        view.copy(kept.data(), overlap, view.size() - overlap);
    }

    /// Takes a view that begins in the current line, and the hits in it.
    void take(std::string_view view, std::uint64_t viewBegin, std::span<const MarkerHit> hits) {
        std::size_t lineInView = 0;
        while (!failed && (!hits.empty() || !markers.empty() || skipping)) {
            if (markers.empty() && !skipping) {
                const auto before = lastNewline(view.substr(lineInView, hits.front().position - lineInView));
                if (before != std::string_view::npos) {
                    lineInView += before + 1;
                    startLine(viewBegin + lineInView);
                }
            }
            const auto end = std::min(view.find('\n', lineInView), view.size());
            for (; !hits.empty() && hits.front().position < end; hits = hits.subspan(1)) {
                markers.insert(hits.front().marker);
            }
            if (end == view.size()) {
                return;
            }
            endLine(view, viewBegin, end);
            lineInView = end + 1;
        }
        if (const auto last = lastNewline(view.substr(lineInView)); last != std::string_view::npos) {
            startLine(viewBegin + lineInView + last + 1);
        }
    }
};

bool MarkedLines::takeShared(Pass& pass, std::uint64_t end) {
    SearchedBlocks blocks({pass.file, pass.position, end, blockSize_, search_}, *shared_.queue);
    while (SearchedBlock* const next = blocks.next()) {
        if (!next->count) {
            return false;
        }
        const auto view = pass.viewOf(next->buffer.block(), *next->count);
        // The markers that begin in what is kept, then those that lie in the block.
        hits_.clear();
        search_(view.substr(0, pass.overlap + longestOverlap), hits_);
        std::erase_if(hits_, [&](const MarkerHit& hit) { return hit.position >= pass.overlap; });
        for (const auto& hit : next->hits) {
            hits_.push_back({hit.position + pass.overlap, hit.marker});
        }
        pass.takeBlock(view, hits_);
        if (pass.failed || *next->count < next->wanted) {
            break;
        }
    }
    return true;
}

bool MarkedLines::takeAlone(Pass& pass, std::uint64_t end) {
    while (pass.position < end && !pass.failed) {
        // After the first one, every read begins at a multiple of the block's size.
        const auto wanted =
            std::min<std::uint64_t>(blockSize_ - pass.position % blockSize_, end - pass.position);
        const auto count = pass.file.read(pass.position, {buffer_.block(), static_cast<std::size_t>(wanted)});
        if (!count) {
            return false;
        }
        if (*count == 0) {
            break; // The file has shrunk meanwhile.
        }
        const auto view = pass.viewOf(buffer_.block(), *count);
        hits_.clear();
        search_(view, hits_);
        pass.takeBlock(view, hits_);
    }
    return true;
}

std::optional<std::uint64_t>
MarkedLines::read(const RandomAccessFile& file, const Range& range, const Visit& visit) {
    Pass pass{file, visit, range.startsMidLine, range.begin, range.begin};
    const bool isShared =
        shared_.queue != nullptr && range.begin < range.end && range.end - range.begin >= shared_.least;
    if ((isShared && !takeShared(pass, range.end)) || !takeAlone(pass, range.end) || pass.failed) {
        return std::nullopt;
    }
    return pass.lineBegin;
}

} // namespace mimkins
