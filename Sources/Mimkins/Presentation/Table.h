#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// Columns that a text takes on a terminal: wide East Asian characters and emoji take two, combining marks
/// none.
std::size_t displayWidth(std::string_view text);

/// The text cut to so many columns, with "…" at its end if something was cut off.
std::string elided(std::string_view text, std::size_t columns);

/// The text in one line that is safe to print: every control character becomes a blank.
std::string printable(std::string_view text);

/// One cell. The colour is an ANSI code such as "33", used only when the table is printed in colour.
struct TableCell {
    std::string text;
    std::string_view color;
};

/// How a table is laid out.
struct TableStyle {
    std::size_t width = 0; ///< columns of the terminal; 0 for no limit
    bool colored = false;
};

/// A table for people: a heading, then rows, columns two blanks apart. When it is wider than the terminal the
/// last column is cut first, then the widest ones, none below four columns.
std::string renderTable(
    const std::vector<std::string>& heading, const std::vector<std::vector<TableCell>>& rows, TableStyle style
);

} // namespace mimkins
