#include "SettingsView/ThemeGrid.h"

#include <algorithm>

namespace mimkins {

namespace {

constexpr int gap = 8;

} // namespace

ThemeGrid::ThemeGrid() {
    for (const auto& theme : PetTheme::all()) {
        auto* tile = new ThemeTile(theme);
        tile->setParent(this);
        group_.addButton(tile, static_cast<int>(tiles_.size()));
        tiles_.push_back(tile);
    }
    connect(&group_, &QButtonGroup::idClicked, this, [this](int tile) {
        if (onChoose) {
            onChoose(std::string(tiles_.at(static_cast<std::size_t>(tile))->theme().id));
        }
    });
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ThemeGrid::setChosen(const std::string& id) {
    group_.setExclusive(false);
    for (auto* tile : tiles_) {
        tile->setChecked(tile->theme().id == id);
    }
    group_.setExclusive(true);
    giveTabToTheChecked(tiles_);
}

void ThemeGrid::setLook(const CardLook& look) {
    for (auto* tile : tiles_) {
        tile->setLook(look);
    }
    updateGeometry();
    arrange();
}

int ThemeGrid::widest() const {
    int width = 0;
    for (const auto* tile : tiles_) {
        width = std::max(width, tile->sizeHint().width());
    }
    return width;
}

int ThemeGrid::columns(int width) const {
    return 2 * widest() + gap <= width ? 2 : 1;
}

int ThemeGrid::tileHeight() const {
    int height = 0;
    for (const auto* tile : tiles_) {
        height = std::max(height, tile->sizeHint().height());
    }
    return height;
}

int ThemeGrid::heightForWidth(int width) const {
    const int count = columns(width - contentsMargins().right());
    const int rows = (static_cast<int>(tiles_.size()) + count - 1) / count;
    return rows * (tileHeight() + gap) - gap;
}

QSize ThemeGrid::sizeHint() const {
    const int width = 2 * widest() + gap;
    return {width, heightForWidth(width)};
}

QSize ThemeGrid::minimumSizeHint() const {
    return {widest(), tileHeight()};
}

void ThemeGrid::arrange() {
    const int room = width() - contentsMargins().right();
    const int count = columns(room);
    const int side = (room - (count - 1) * gap) / count;
    for (int index = 0; index < static_cast<int>(tiles_.size()); ++index) {
        const int column = index % count;
        const int left = column * (side + gap);
        const int right = column == count - 1 ? room : left + side;
        tiles_[static_cast<std::size_t>(index)]->setGeometry(
            left, index / count * (tileHeight() + gap), right - left, tileHeight()
        );
    }
}

void ThemeGrid::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

} // namespace mimkins
