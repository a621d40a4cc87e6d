#pragma once

#include "PanelView/Backdrop.h"
#include "PanelView/EmptyState.h"
#include "PanelView/PanelHeader.h"
#include "PanelView/SessionList.h"
#include "Platform/LinkOpener.h"
#include "Presentation/DrawerState.h"
#include "Presentation/PanelSettings.h"
#include "SessionStore/SessionStore.h"
#include "Theme/PetTheme.h"

#include <QWidget>

#include <functional>

namespace mimkins {

/// The content of the drawer: the header, and below it the list of sessions.
class PanelView final : public QWidget {
public:
    struct Parts {
        SessionStore& store;
        DrawerState& drawer;
        RunLoop& loop;
        LinkOpener& links;
    };

    /// What it is given outlives the view.
    PanelView(Parts parts, PanelSettings settings);
    ~PanelView() override;

    /// The user wants the drawer shut from inside it.
    std::function<void()> onClose;

    void setSettings(const PanelSettings& settings);

    const PanelHeader& header() const { return *header_; }

    const SessionList& list() const { return *list_; }

    SessionList& list() { return *list_; }

    const EmptyState& emptyState() const { return *empty_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    CardLook look() const;
    void showSessions();
    void followDrawer();
    void keepTime();
    CardContext cardContext(const std::string& id) const;
    const Session* find(const std::string& id) const;
    void open(const std::string& id);
    void choose(const std::string& id, const CardChoice& choice);

    Parts parts_;
    PanelSettings settings_;
    PetTheme theme_; ///< with plain colours
    PanelHeader* header_;
    SessionList* list_;
    EmptyState* empty_;
    Backdrop backdrop_;
    std::optional<std::string> highlighted_;
    sigc::connection sessionsConnection_;
    sigc::connection subtasksConnection_;
    sigc::connection drawerConnection_;
    Handle beat_;
    Handle frames_;
    unsigned frame_ = 0;
};

} // namespace mimkins
