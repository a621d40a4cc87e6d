#include "Sweep/TranscriptSearch.h"

#include "Base/Json.h"
#include "Sweep/TranscriptLine.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace mimkins {

namespace {

/// How far from the end of a transcript the search goes: far more than any real one has, so that a file that
/// only claims to be huge doesn't keep a processor busy for hours.
constexpr std::uint64_t longestSearch = 4'294'967'296;

/// A stretch of the file in memory.
struct Block {
    std::uint64_t position = 0;
    std::string bytes;

    std::uint64_t end() const { return position + bytes.size(); }

    /// Reads `count` bytes from `from`. Bytes that the file has lost since it was opened count as zero.
    void load(const RandomAccessFile& file, std::uint64_t from, std::size_t count) {
        position = from;
        bytes.resize(count);
        const auto came = file.read(from, bytes).value_or(0);
        std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(std::min(came, count)), bytes.end(), '\0');
    }
};

/// Where a line lies in the file, without its newline.
struct LineBounds {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;

    bool contains(std::uint64_t position) const { return begin <= position && position < end; }
};

/// Finds the lines around positions in a file of which one block is at hand.
class LineFinder {
public:
    LineFinder(const RandomAccessFile& file, const Block& block, std::size_t blockSize)
        : file_(file), size_(file.identity().size), block_(block), blockSize_(blockSize) {}

    /// The line around the bytes from `first` to `last`.
    LineBounds around(std::uint64_t first, std::uint64_t last) { return {lineBegin(first), lineEnd(last)}; }

    /// The text of a line; valid until the next call.
    std::string_view text(const LineBounds& line) {
        const auto size = static_cast<std::size_t>(line.end - line.begin);
        if (line.begin >= block_.position && line.end <= block_.end()) {
            return std::string_view(block_.bytes).substr(line.begin - block_.position, size);
        }
        outside_.load(file_, line.begin, size);
        return outside_.bytes;
    }

private:
    /// The position after the last newline before `position`. Looks no further back than the longest line.
    std::uint64_t lineBegin(std::uint64_t position) {
        const std::uint64_t furthest = position - std::min<std::uint64_t>(position, longestTranscriptLine);
        const Block* block = &block_;
        while (true) {
            const std::string_view before(block->bytes.data(), position - block->position);
            if (const auto newline = before.rfind('\n'); newline != std::string_view::npos) {
                return block->position + newline + 1;
            }
            position = block->position;
            if (position <= furthest) {
                return position;
            }
            const auto count = std::min<std::uint64_t>(position, blockSize_);
            outside_.load(file_, position - count, static_cast<std::size_t>(count));
            block = &outside_;
        }
    }

    /// The position of the first newline at `position` or behind it, or the end of the file. Looks no further
    /// than the longest line.
    std::uint64_t lineEnd(std::uint64_t position) {
        const std::uint64_t furthest = std::min(size_, position + longestTranscriptLine);
        const Block* block = &block_;
        if (position > block->end()) {
            loadAt(position, furthest);
            block = &outside_;
        }
        while (true) {
            const auto newline = block->bytes.find('\n', position - block->position);
            if (newline != std::string::npos) {
                return block->position + newline;
            }
            position = block->end();
            if (position >= furthest) {
                return position;
            }
            loadAt(position, furthest);
            block = &outside_;
        }
    }

    void loadAt(std::uint64_t position, std::uint64_t furthest) {
        const auto count = std::min<std::uint64_t>(furthest - position, blockSize_);
        outside_.load(file_, position, static_cast<std::size_t>(count));
    }

    const RandomAccessFile& file_;
    std::uint64_t size_;
    const Block& block_;
    std::size_t blockSize_;
    Block outside_;
};

/// The pass through one transcript.
class ChangeSearch {
public:
    ChangeSearch(const RandomAccessFile& file, const ChangeQuery& query, std::vector<bool>& changed)
        : file_(file), query_(query), names_(query.search.names()), changed_(changed),
          lines_(file, block_, query.blockSize), states_(names_.size()) {
        for (std::size_t index = 0; index < states_.size(); ++index) {
            // A name with a newline can't stand in a line, where it would be escaped.
            const bool findable = names_[index].find('\n') == std::string::npos;
            states_[index].settled = changed_[index] || !findable;
            open_ += states_[index].settled ? 0U : 1U;
        }
    }

    void run() {
        NameSearch::Progress progress;
        std::uint64_t rest = file_.identity().size;
        const std::uint64_t furthest = rest - std::min(rest, longestSearch);
        while (rest > furthest && open_ > 0) {
            const auto count = std::min<std::uint64_t>(rest - furthest, query_.blockSize);
            rest -= count;
            block_.load(file_, rest, static_cast<std::size_t>(count));
            query_.search.walk(block_.bytes, progress, [this](std::size_t name, std::size_t offset) {
                visit(name, block_.position + offset);
                return open_ > 0;
            });
        }
    }

private:
    struct NameState {
        std::uint64_t lastMention = std::numeric_limits<std::uint64_t>::max();
        std::uint64_t lastLine = std::numeric_limits<std::uint64_t>::max(); ///< where it begins
        std::size_t mentions = 0;
        bool settled = false;
    };

    void visit(std::size_t index, std::uint64_t position) {
        auto& name = states_[index];
        const auto end = position + names_[index].size();
        if (name.settled || end > name.lastMention) {
            return;
        }
        name.lastMention = position;
        ++name.mentions;
        takeLine(position, end);
        if (bounds_->begin != name.lastLine) {
            name.lastLine = bounds_->begin;
            judge(index);
        }
        if (!name.settled && name.mentions == mentionLimit) {
            settle(index);
        }
    }

    void judge(std::size_t index) {
        const auto verdict = line_ ? line_->verdict(names_[index], query_.since) : LineVerdict::silent;
        if (verdict != LineVerdict::silent) {
            changed_[index] = verdict == LineVerdict::changes;
            settle(index);
        }
    }

    void settle(std::size_t index) {
        states_[index].settled = true;
        --open_;
    }

    /// Makes the line around a mention the current one. Neighbouring mentions mostly share it.
    void takeLine(std::uint64_t position, std::uint64_t end) {
        if (bounds_ && bounds_->contains(position) && end <= bounds_->end) {
            return;
        }
        bounds_ = lines_.around(position, end);
        line_.reset();
        if (bounds_->end - bounds_->begin <= longestTranscriptLine) {
            line_.emplace(lines_.text(*bounds_), parser_);
        }
    }

    const RandomAccessFile& file_;
    const ChangeQuery& query_;
    const std::vector<std::string>& names_;
    std::vector<bool>& changed_;
    Block block_;
    LineFinder lines_;
    std::vector<NameState> states_; ///< of the names, in their order
    std::size_t open_ = 0;          ///< names that aren't settled
    std::optional<LineBounds> bounds_;
    json::Parser parser_;
    std::optional<TranscriptLine> line_;
};

} // namespace

void findChanges(const RandomAccessFile& transcript, const ChangeQuery& query, std::vector<bool>& changed) {
    ChangeSearch(transcript, query, changed).run();
}

} // namespace mimkins
