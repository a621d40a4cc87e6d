#include "Presentation/SweepText.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

namespace mimkins {

namespace {

constexpr std::string_view bold = "1";
constexpr std::string_view dim = "2";
constexpr std::string_view green = "32";
constexpr std::string_view yellow = "33";
constexpr std::string_view blue = "34";

constexpr std::size_t indentation = 2;
constexpr std::size_t gap = 2;

/// Yellow for what needs the user, blue for what goes on by itself, as in the list of sessions.
std::string_view terminalColor(SweepWords::Kind kind) {
    const bool needsUser = kind == SweepWords::Kind::waiting || kind == SweepWords::Kind::uncommitted;
    return needsUser ? yellow : blue;
}

/// Where the two columns of all sections stand.
struct Columns {
    std::size_t title = 0;
    std::size_t detail = 0;
};

Columns columnsFor(const SweepWords& words, std::size_t width) {
    Columns columns{0, std::numeric_limits<std::size_t>::max()};
    for (const auto& section : words.sections) {
        for (const auto& row : section.rows) {
            columns.title = std::max(columns.title, displayWidth(printable(row.title)));
        }
    }
    if (width > 0) {
        const std::size_t available = width > indentation + gap ? width - indentation - gap : 0;
        columns.title = std::min(columns.title, available / 2);
        columns.detail = available - columns.title;
    }
    return columns;
}

/// Puts the lines together.
class Page {
public:
    Page(const SweepWords& words, const TableStyle& style)
        : style_(style), columns_(columnsFor(words, style.width)) {}

    std::string text() && { return std::move(text_); }

    void line(std::string_view words, std::string_view color) {
        text_ += colored(fitting(words), color);
        text_ += '\n';
    }

    void section(const SweepWords::Section& section) {
        const std::string count = " " + std::to_string(section.rows.size());
        if (style_.width > 0 && displayWidth(section.title + count) > style_.width) {
            line(section.title + count, bold);
        } else {
            text_ += colored(section.title, bold) + colored(count, dim) + "\n";
        }
        for (const auto& row : section.rows) {
            addRow(row, terminalColor(section.kind));
        }
        text_ += '\n';
    }

private:
    void addRow(const SweepWords::Row& row, std::string_view color) {
        const std::string title = elided(printable(row.title), columns_.title);
        text_.append(indentation, ' ');
        text_ += colored(title, color);
        text_.append(columns_.title - displayWidth(title) + gap, ' ');
        text_ += elided(printable(row.detail), columns_.detail);
        text_ += '\n';
    }

    std::string fitting(std::string_view words) const {
        return style_.width > 0 ? elided(words, style_.width) : std::string(words);
    }

    std::string colored(std::string_view words, std::string_view color) const {
        if (!style_.colored || words.empty()) {
            return std::string(words);
        }
        return "\033[" + std::string(color) + "m" + std::string(words) + "\033[0m";
    }

    TableStyle style_;
    Columns columns_;
    std::string text_;
};

} // namespace

std::string sweepText(const SweepWords& words, const TableStyle& style) {
    Page page(words, style);
    if (words.allClear) {
        page.line(words.allClear->title, green);
        page.line(words.allClear->detail, dim);
        page.line("", "");
    }
    for (const auto& section : words.sections) {
        page.section(section);
    }
    page.line(words.checked, dim);
    return std::move(page).text();
}

} // namespace mimkins
