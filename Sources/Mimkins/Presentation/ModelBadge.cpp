#include "Presentation/ModelBadge.h"

#include "Presentation/OneLine.h"

namespace mimkins {

namespace {

Symbol symbolOf(const std::optional<ModelTag::Parts>& parts) {
    if (!parts || !parts->family) {
        return Symbol::chip;
    }
    switch (*parts->family) {
    case ModelTag::Family::opus:
        return Symbol::note;
    case ModelTag::Family::sonnet:
        return Symbol::pencil;
    case ModelTag::Family::haiku:
        return Symbol::flower;
    case ModelTag::Family::fable:
        return Symbol::book;
    }
    return Symbol::chip;
}

} // namespace

ModelBadge modelBadge(const ModelTag& tag, ModelBadgeForm form) {
    const auto parts = tag.parts();
    ModelBadge badge;
    badge.symbol = symbolOf(parts);
    badge.highlight = form == ModelBadgeForm::highlighted;
    if (form != ModelBadgeForm::iconOnly && parts) {
        badge.name = onOneLine(parts->name);
    }
    if (tag.effort) {
        badge.pips = tag.pips();
    }
    badge.toolTip = onOneLine(tag.summary());
    if (badge.highlight) {
        badge.toolTip += " (a different model from its main thread)";
    }
    return badge;
}

SubtaskBadges subtaskBadges(const ModelTag& tag, const std::optional<ModelTag>& parent) {
    SubtaskBadges badges;
    if (!parent || (!tag.model && !tag.effort)) {
        return badges;
    }
    const auto own = tag.parts();
    const auto expected = parent->parts();
    if (own && expected && own->name != expected->name) {
        badges.highlighted = modelBadge(tag, ModelBadgeForm::highlighted);
    } else {
        badges.plain = modelBadge(tag, ModelBadgeForm::iconOnly);
    }
    return badges;
}

} // namespace mimkins
