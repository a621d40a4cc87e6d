#include "Presentation/Table.h"

#include "Base/Text.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <numeric>

namespace mimkins {

namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t narrowestColumn = 4;

std::size_t scalarWidth(UChar32 scalar) {
    const auto category = U_GET_GC_MASK(scalar);
    if ((category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK | U_GC_CC_MASK)) != 0) {
        return 0;
    }
    const auto width = u_getIntPropertyValue(scalar, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_FULLWIDTH || width == U_EA_WIDE ? 2 : 1;
}

std::vector<std::size_t>
naturalWidths(const std::vector<std::string>& heading, const std::vector<std::vector<TableCell>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& title : heading) {
        widths.push_back(displayWidth(title));
    }
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < widths.size() && column < row.size(); ++column) {
            widths[column] = std::max(widths[column], displayWidth(row[column].text));
        }
    }
    return widths;
}

void fit(std::vector<std::size_t>& widths, std::size_t available) {
    const auto total = [&widths] {
        return std::accumulate(widths.begin(), widths.end(), gap * (widths.size() - 1));
    };
    std::size_t excess = total() > available ? total() - available : 0;
    const auto shrink = [&excess](std::size_t& width, std::size_t floor) {
        const auto cut = std::min(excess, width > floor ? width - floor : 0);
        width -= cut;
        excess -= cut;
    };
    constexpr std::size_t comfortableLastColumn = 16;
    shrink(widths.back(), comfortableLastColumn);
    while (excess > 0) {
        auto& widest = *std::max_element(widths.begin(), widths.end());
        if (widest <= narrowestColumn) {
            break;
        }
        shrink(widest, widest - 1);
    }
}

void appendRow(
    std::string& out, const std::vector<TableCell>& row, const std::vector<std::size_t>& widths, bool colored
) {
    for (std::size_t column = 0; column < row.size(); ++column) {
        const std::string text = elided(row[column].text, widths[column]);
        const bool tinted = colored && !row[column].color.empty();
        if (tinted) {
            out += "\033[" + std::string(row[column].color) + "m";
        }
        out += text;
        if (tinted) {
            out += "\033[0m";
        }
        if (column + 1 < row.size()) {
            out.append(widths[column] - displayWidth(text) + gap, ' ');
        }
    }
    while (!out.empty() && out.back() == ' ') {
        out.pop_back();
    }
    out += '\n';
}

} // namespace

std::size_t displayWidth(std::string_view text) {
    const auto characters =
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
    std::size_t width = 0;
    for (int32_t index = 0; index < characters.length(); index = characters.moveIndex32(index, 1)) {
        width += scalarWidth(characters.char32At(index));
    }
    return width;
}

std::string elided(std::string_view text, std::size_t columns) {
    if (displayWidth(text) <= columns) {
        return std::string(text);
    }
    if (columns == 0) {
        return {};
    }
    std::size_t count = std::min(columns - 1, text.size());
    std::string kept = text::prefix(text, count);
    while (count > 0 && displayWidth(kept) > columns - 1) {
        kept = text::prefix(text, --count);
    }
    return kept + "…";
}

std::string printable(std::string_view text) {
    auto characters =
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
    for (int32_t index = 0; index < characters.length(); ++index) {
        if (u_iscntrl(characters.charAt(index)) != 0) {
            characters.setCharAt(index, u' ');
        }
    }
    std::string result;
    characters.toUTF8String(result);
    return result;
}

std::string renderTable(
    const std::vector<std::string>& heading, const std::vector<std::vector<TableCell>>& rows, TableStyle style
) {
    auto widths = naturalWidths(heading, rows);
    if (style.width > 0) {
        fit(widths, style.width);
    }
    std::string out;
    std::vector<TableCell> titles;
    for (const auto& title : heading) {
        titles.push_back({title, "2"});
    }
    appendRow(out, titles, widths, style.colored);
    for (const auto& row : rows) {
        appendRow(out, row, widths, style.colored);
    }
    return out;
}

} // namespace mimkins
