#include "Base/Text.h"
#include "Presentation/Elapsed.h"
#include "Presentation/WhyWords.h"

namespace mimkins {

namespace {

/// The text in lines that break between words and fit the width; a longer word is cut.
std::string wrapped(const std::string& text, std::size_t width) {
    std::string result;
    std::string line;
    for (const auto word : text::splitDroppingEmpty(text, ' ')) {
        const std::string longer = line.empty() ? std::string(word) : line + " " + std::string(word);
        if (width == 0 || line.empty() || displayWidth(longer) <= width) {
            line = longer;
            continue;
        }
        result += elided(line, width) + "\n";
        line = word;
    }
    return result + (width == 0 ? line : elided(line, width)) + "\n";
}

std::string age(const std::optional<Date>& time, Date now) {
    if (!time) {
        return {};
    }
    const double seconds = now - *time;
    return seconds < 0 ? "in " + elapsed(-seconds) : elapsed(seconds);
}

} // namespace

std::string whyText(const WhyWords& words, Date now, const TableStyle& style) {
    constexpr std::string_view green = "32";
    constexpr std::string_view dim = "2";
    std::string result = wrapped(printable(words.headline), style.width) + "\n";
    std::vector<std::vector<TableCell>> rows;
    for (const auto& source : words.sources) {
        const std::string_view color = source.speaks ? green : source.says ? std::string_view() : dim;
        rows.push_back(
            {{std::string(source.label), color},
             {age(source.time, now), color},
             {printable(source.says.value_or("nothing")), color}}
        );
    }
    result += renderTable({"SOURCE", "AGE", "SAYS"}, rows, style) + "\n";
    for (const auto& sentence : {words.speaker, words.rule, words.listing}) {
        if (!sentence.empty()) {
            result += wrapped(printable(sentence), style.width);
        }
    }
    return result;
}

} // namespace mimkins
