#include "App/RenderCards.h"

#include "App/RenderScene.h"
#include "Drawing/Qt/Scheme.h"
#include "PanelView/Backdrop.h"
#include "PanelView/EdgeTab.h"
#include "PanelView/SessionList.h"
#include "Presentation/PanelFrames.h"
#include "Presentation/SessionPet.h"

#include <QPainter>

#include <cmath>

namespace mimkins {

namespace {

using CardState = Options::CardState;

/// Seconds after which a card that is pressed is at its smallest.
constexpr double pressedFor = 0.08;

std::vector<CardRow> rowsOf(RenderScene& scene, CardState state) {
    std::vector<CardRow> rows;
    for (const auto& session : scene.store().sessions()) {
        CardContext context;
        const auto subtasks = scene.store().subtasks().find(session.id);
        if (subtasks != scene.store().subtasks().end()) {
            context.subtasks = subtasks->second;
        }
        context.expanded = scene.store().expandedId() == session.id;
        context.highlighted = state == CardState::next;
        rows.push_back(cardRow(session, scene.settings().cards, context));
    }
    return rows;
}

void show(CardState state, SessionList& list) {
    for (auto* card : list.cards()) {
        card->setAttribute(Qt::WA_UnderMouse, state == CardState::hover);
        if (state == CardState::pressed) {
            card->press();
            card->step(pressedFor);
        }
    }
}

QImage onGround(QWidget& content, const PetTheme& theme) {
    const double ratio = content.devicePixelRatioF();
    QImage image(content.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    Backdrop backdrop;
    backdrop.draw(painter, QRegion(content.rect()), theme, {content.size(), 0, ratio});
    content.render(&painter, {}, {}, QWidget::DrawChildren);
    return image;
}

} // namespace

int renderCards(const Options& options, const Paths& paths) {
    RenderScene scene(options, paths);
    const PanelSettings& settings = scene.settings();
    const PetTheme theme = PetTheme::named(settings.themeId).resolved(systemScheme());
    SessionList list({&theme, Typography(theme.font), settings.petPoints, petLook(theme, settings.motion)});
    list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setPaused(true);
    const int width = static_cast<int>(settings.panelWidth);
    list.setAttribute(Qt::WA_DontShowOnScreen);
    list.resize(width, 1);
    list.show(); // only what is shown follows its size at once
    list.setRows(rowsOf(scene, options.cardState), scene.at());
    list.resize(width, std::max(static_cast<int>(std::ceil(list.flow().contentHeight())), 1));
    list.setPaused(false);
    show(options.cardState, list);
    return writePicture(onGround(list, theme), options.output);
}

int renderTab(const Options& options, const Paths& paths) {
    RenderScene scene(options, paths);
    EdgeTab tab(scene.loop());
    tab.setTheme(PetTheme::named(scene.settings().themeId));
    tab.setContent({edgeTabBadge(scene.store().sessions()), options.open});
    tab.setAttribute(Qt::WA_UnderMouse, options.cardState == CardState::hover);
    tab.show(); // the glow shows a moment only where it is seen
    return writePicture(tab.grab().toImage(), options.output);
}

} // namespace mimkins
