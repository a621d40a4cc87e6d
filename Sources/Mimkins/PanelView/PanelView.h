#pragma once

#include "PanelView/Confetti.h"
#include "PanelView/EmptyState.h"
#include "PanelView/PanelGround.h"
#include "PanelView/PanelHeader.h"
#include "PanelView/PanelScreen.h"
#include "PanelView/ScreenFade.h"
#include "PanelView/SessionList.h"
#include "PanelView/SweepView.h"
#include "Platform/LinkOpener.h"
#include "Presentation/DrawerState.h"
#include "Presentation/PanelSettings.h"
#include "SessionStore/SessionStore.h"
#include "Theme/PetTheme.h"

#include <QWidget>

#include <functional>
#include <map>

namespace mimkins {

/// The content of the drawer: the header, and below it one of the screens.
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

    /// How everything in the drawer looks. Changes with the settings.
    CardLook look();

    /// Makes a screen in this look. The drawer takes it over.
    using MakeScreen = std::function<PanelScreen*(const CardLook&)>;

    /// Tells the drawer how to make the screen of a mode, which it does when the mode is first shown.
    void addScreen(DrawerMode mode, MakeScreen make);

    const PanelHeader& header() const { return *header_; }

    PanelHeader& header() { return *header_; }

    const SessionList& list() const { return *list_; }

    SessionList& list() { return *list_; }

    const EmptyState& emptyState() const { return *empty_; }

    const Backdrop& backdrop() const { return ground_.backdrop(); }

    const Confetti& confetti() const { return *confetti_; }

    const SweepView& sweep() const { return *sweep_; }

    const ScreenFade& screenFade() const { return *fade_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showSessions();
    void presentSessions();
    void showSweep();
    void showScreen();
    void changeScreen();
    void enterScreen();
    QWidget* screen() const;
    PanelScreen* addedScreen() const;
    void makeScreen();
    void followDrawer();
    void beat();
    void animate();
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
    SweepView* sweep_;
    std::map<DrawerMode, MakeScreen> makers_;    ///< of the screens that nobody has seen yet
    std::map<DrawerMode, PanelScreen*> screens_; ///< in place of the list, by mode
    ScreenFade* fade_;
    DrawerMode mode_ = DrawerMode::pets; ///< of the screen that shows
    Confetti* confetti_;
    PanelGround ground_;
    std::optional<std::string> highlighted_;
    bool isStale_ = false; ///< the sessions have changed while nobody could see them
    sigc::connection sessionsConnection_;
    sigc::connection sweepConnection_;
    sigc::connection subtasksConnection_;
    sigc::connection drawerConnection_;
    Handle beat_;
    Handle frames_;
    unsigned frame_ = 0;
};

} // namespace mimkins
