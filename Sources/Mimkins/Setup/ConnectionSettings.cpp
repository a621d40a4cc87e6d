#include "Setup/ConnectionSettings.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/Labels.h"
#include "Setup/SetupKit.h"
#include "Setup/UninstallAlert.h"

#include <QAccessible>
#include <QClipboard>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPainter>
#include <QShowEvent>
#include <QVBoxLayout>

#include <cmath>
#include <utility>

namespace mimkins {

namespace {

constexpr int spacing = 8;
constexpr int hintPadding = 4;
constexpr int dotSide = 8;
constexpr int dotGap = 7;
constexpr double separatorOpacity = 0.25;
constexpr double faint = 0.4;
/// Of the words beside a button, in points.
constexpr double leastRoom = 84;

} // namespace

/// Shows by its colour how the connection stands.
class ConnectionSettings::Dot final : public QWidget {
public:
    Dot() { setFixedSize(dotSide, dotSide); }

    void setColor(const Color& color) {
        color_ = qt::color(color);
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color_);
        painter.drawEllipse(rect());
    }

private:
    QColor color_;
};

class ConnectionSettings::Divider final : public QWidget {
public:
    explicit Divider(double opacity) : opacity_(opacity) { setFixedHeight(1); }

    void setLook(const CardLook& look) {
        color_ = qt::color(look.theme->text.faded(separatorOpacity * opacity_));
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), color_); }

private:
    double opacity_;
    QColor color_;
};

ConnectionSettings::ConnectionSettings(Parts parts, const CardLook& look)
    : parts_(std::move(parts)), look_(look) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    makeState(*column);
    makeOtherAgents(*column);
    makeUninstall(*column);
    changed_ = parts_.connection.changed().connect([this] { showConnection(); });
    showConnection();
    setLook(look);
}

ConnectionSettings::~ConnectionSettings() {
    changed_.disconnect();
}

void ConnectionSettings::makeState(QVBoxLayout& column) {
    dot_ = new Dot;
    state_ = kit::wrappedLabel(Qt::AlignLeft | Qt::AlignVCenter);
    auto* words = new QWidget;
    auto* line = new QHBoxLayout(words);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(dotGap);
    line->addWidget(dot_);
    line->addWidget(state_, 1);
    button_ = new PillButton(PillButton::Kind::small);
    connect(button_, &QAbstractButton::clicked, this, [this] { press(); });
    stateRow_ = new PairRow(words, button_);
    message_ = kit::wrappedLabel(Qt::AlignLeft | Qt::AlignTop);
    column.addWidget(stateRow_);
    column.addWidget(message_);
    faintDivider_ = new Divider(faint);
    column.addWidget(faintDivider_);
}

void ConnectionSettings::makeOtherAgents(QVBoxLayout& column) {
    using Words = ConnectionWords;
    const auto label = [&column](std::string_view words) {
        auto* made = kit::wrappedLabel(Qt::AlignLeft | Qt::AlignVCenter);
        kit::show(*made, words);
        column.addWidget(made);
        return made;
    };
    const std::string prompt = agentPrompt(parts_.files, parts_.home);
    const std::string command = linkCommand(parts_.files);
    otherAgents_ = label(Words::otherAgents);
    promptHint_ = label(Words::promptHint);
    preview_ = kit::wrappedLabel(Qt::AlignLeft | Qt::AlignVCenter);
    kit::show(*preview_, Words::promptPreview);
    copyPrompt_ = new PillButton(PillButton::Kind::small);
    copyPrompt_->setWords(qt::text(Words::copyPrompt(false)));
    connect(copyPrompt_, &QAbstractButton::clicked, this, [this, prompt] {
        copy(prompt, *copyPrompt_, ConnectionWords::copyPrompt(true));
    });
    promptRow_ = new PairRow(preview_, copyPrompt_);
    promptRow_->setToolTip(qt::text(prompt));
    column.addWidget(promptRow_);
    column.addSpacing(hintPadding);
    commandHint_ = label(Words::commandHint);
    command_ = new SelectableText(9);
    command_->setWords(qt::text(command));
    command_->setAccessibleName(qt::text(Words::commandHint));
    copyCommand_ = new PillButton(PillButton::Kind::small);
    copyCommand_->setWords(qt::text(Words::copyCommand(false)));
    connect(copyCommand_, &QAbstractButton::clicked, this, [this, command] {
        copy(command, *copyCommand_, ConnectionWords::copyCommand(true));
    });
    commandRow_ = new PairRow(command_, copyCommand_);
    column.addWidget(commandRow_);
}

void ConnectionSettings::makeUninstall(QVBoxLayout& column) {
    divider_ = new Divider(1);
    column.addWidget(divider_);
    uninstall_ = new PillButton(PillButton::Kind::flush, 11);
    uninstall_->setWords(qt::text(ConnectionWords::uninstall));
    connect(uninstall_, &QAbstractButton::clicked, this, [this] { askToUninstall(); });
    column.addWidget(uninstall_, 0, Qt::AlignLeft);
}

void ConnectionSettings::setLook(const CardLook& look) {
    look_ = look;
    const PetTheme& theme = *look.theme;
    const auto small = look.typography.systemFont(10);
    QFont italic = small;
    italic.setItalic(true);
    dress(*state_, look.typography.systemFont(12), theme.text);
    dress(*message_, small, theme.subtext);
    dress(*otherAgents_, look.typography.systemFont(12, QFont::Medium), theme.text);
    dress(*promptHint_, small, theme.subtext);
    dress(*preview_, italic, theme.subtext);
    dress(*commandHint_, small, theme.subtext);
    command_->setLook(look);
    for (auto* button : {button_, copyPrompt_, copyCommand_, uninstall_}) {
        button->setLook(look);
    }
    for (auto* row : {stateRow_, promptRow_, commandRow_}) {
        row->setLeastRoom(static_cast<int>(std::lround(leastRoom * look.typography.scale())));
    }
    faintDivider_->setLook(look);
    divider_->setLook(look);
    dot_->setColor(dotColor(theme, parts_.connection.status()));
}

QMessageBox* ConnectionSettings::alert() const {
    return alert_;
}

void ConnectionSettings::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        parts_.connection.refresh();
    }
}

void ConnectionSettings::showConnection() {
    const auto status = parts_.connection.status();
    const auto words = ConnectionWords::of(status);
    kit::show(*state_, words.state);
    dot_->setColor(dotColor(*look_.theme, status));
    if (words.button) {
        button_->setWords(qt::text(words.button->title));
    }
    button_->setVisible(words.button.has_value());
    stateRow_->updateGeometry();
    kit::showMessage(*message_, parts_.connection.lastMessage());
}

void ConnectionSettings::press() {
    const auto words = ConnectionWords::of(parts_.connection.status());
    if (!words.button) {
        return;
    }
    if (words.button->action == ConnectionWords::Action::connect) {
        parts_.connection.connect();
    } else {
        parts_.connection.disconnect();
    }
}

void ConnectionSettings::copy(const std::string& words, PillButton& button, std::string_view title) {
    QGuiApplication::clipboard()->setText(qt::text(words));
    button.setWords(qt::text(title));
}

void ConnectionSettings::askToUninstall() {
    if (alert_ == nullptr) {
        alert_ = uninstallAlert(*this, [this] { parts_.connection.uninstall(); });
    }
    alert_->open();
}

} // namespace mimkins
