#include "Model/ModelTag.h"

#include "Base/Text.h"

#include <charconv>
#include <vector>

namespace mimkins {

namespace {

constexpr std::array<std::string_view, 4> familyWords{"opus", "sonnet", "haiku", "fable"};

std::optional<ModelTag::Family> familyOf(std::string_view piece) {
    for (std::size_t index = 0; index < familyWords.size(); ++index) {
        if (piece == familyWords[index]) {
            return static_cast<ModelTag::Family>(index);
        }
    }
    return std::nullopt;
}

/// A version number such as "4": a decimal integer of one or two characters, which a date is not.
bool isVersionPiece(std::string_view piece) {
    int value = 0;
    const auto result = std::from_chars(piece.data(), piece.data() + piece.size(), value);
    return piece.size() < 3 && result.ec == std::errc() && result.ptr == piece.data() + piece.size();
}

} // namespace

std::string_view rawWord(ModelTag::Family family) {
    return familyWords.at(static_cast<std::size_t>(family));
}

std::optional<ModelTag::Parts> ModelTag::parts() const {
    if (!model) {
        return std::nullopt;
    }
    const std::string lower = text::lowercase(*model);
    std::string_view id = lower;
    if (id.empty() || id == "<synthetic>") {
        return std::nullopt;
    }
    id = id.substr(0, id.find('['));
    constexpr std::string_view vendor = "claude-";
    if (id.substr(0, vendor.size()) == vendor) {
        id.remove_prefix(vendor.size());
    }
    std::optional<Family> family;
    std::vector<std::string> version;
    for (const auto piece : text::splitDroppingEmpty(id, '-')) {
        if (!family) {
            family = familyOf(piece);
        }
        if (isVersionPiece(piece)) {
            version.emplace_back(piece);
        }
    }
    if (!family) {
        constexpr std::size_t longestUnknownName = 24;
        return Parts{std::nullopt, text::prefix(*model, longestUnknownName)};
    }
    std::string name = text::capitalized(rawWord(*family));
    if (!version.empty()) {
        name += " " + text::join(version, ".");
    }
    return Parts{family, std::move(name)};
}

int ModelTag::pips() const {
    const std::string word = text::lowercase(effort.value_or(""));
    if (word == "low") {
        return 1;
    }
    if (word == "medium") {
        return 2;
    }
    if (word == "high") {
        return 3;
    }
    if (word == "xhigh" || word == "extra-high" || word == "extra_high") {
        return 4;
    }
    return word == "max" || word == "ultra" ? 5 : 0;
}

std::string ModelTag::summary() const {
    std::vector<std::string> words;
    if (const auto known = parts()) {
        words.push_back(known->name + " (" + *model + ")");
    }
    if (effort) {
        words.push_back("effort " + *effort);
    }
    return text::join(words, ", ");
}

} // namespace mimkins
