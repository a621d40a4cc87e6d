#include "Presentation/CardMenu.h"

#include <utility>

namespace mimkins {

namespace {

CardMenuEntry divider() {
    CardMenuEntry entry;
    entry.kind = CardMenuEntry::Kind::divider;
    return entry;
}

CardMenuEntry choice(std::string title, CardChoice::Action action) {
    CardMenuEntry entry;
    entry.title = std::move(title);
    entry.choice.action = action;
    return entry;
}

} // namespace

std::vector<CardMenuEntry> cardMenu(bool canOpen, bool hasFolder, std::span<const QuickPrompt> quickPrompts) {
    std::vector<CardMenuEntry> menu;
    menu.push_back(choice("Open Session", CardChoice::Action::open));
    menu.back().enabled = canOpen;
    menu.push_back(divider());
    menu.push_back(choice("New Session Here", CardChoice::Action::newSession));
    CardMenuEntry prompts;
    prompts.kind = CardMenuEntry::Kind::submenu;
    prompts.title = "New Session With…";
    for (const auto& [title, prompt] : quickPrompts) {
        prompts.entries.push_back(choice(title, CardChoice::Action::newSession));
        prompts.entries.back().choice.prompt = prompt;
    }
    menu.push_back(std::move(prompts));
    if (hasFolder) {
        menu.push_back(divider());
        menu.push_back(choice("Show Folder in Finder", CardChoice::Action::showFolder));
    }
    return menu;
}

} // namespace mimkins
