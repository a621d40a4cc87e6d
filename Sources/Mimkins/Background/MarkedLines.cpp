#include "Background/MarkedLines.h"

#include <algorithm>
#include <cstring>
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
    Markers markers{};       ///< those of the current line so far
    bool failed = false;

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

std::optional<std::uint64_t>
MarkedLines::read(const RandomAccessFile& file, const Range& range, const Visit& visit) {
    buffer_.resize(1 + (blockSize_ + sizeof(Page) - 1) / sizeof(Page));
    char* const block = buffer_.front().bytes + sizeof(Page);
    Pass pass{file, visit, range.startsMidLine, range.begin};
    std::size_t overlap = 0;
    for (auto position = range.begin; position < range.end && !pass.failed;) {
        // After the first one, every read begins at a multiple of the block's size.
        const auto wanted = std::min<std::uint64_t>(blockSize_ - position % blockSize_, range.end - position);
        const auto count = file.read(position, {block, static_cast<std::size_t>(wanted)});
        if (!count) {
            return std::nullopt;
        }
        if (*count == 0) {
            break; // The file has shrunk meanwhile.
        }
        const std::string_view view(block - overlap, overlap + *count);
        hits_.clear();
        search_(view, hits_);
        pass.take(view, position - overlap, hits_);
        position += *count;
        overlap = static_cast<std::size_t>(
            std::min<std::uint64_t>({longestOverlap, view.size(), position - pass.lineBegin})
        );
        std::memmove(block - overlap, view.data() + view.size() - overlap, overlap);
    }
    return pass.failed ? std::nullopt : std::optional(pass.lineBegin);
}

} // namespace mimkins
