#include "Setup/UninstallAlert.h"

#include "Drawing/Qt/Conversions.h"
#include "Presentation/SetupWords.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace mimkins {

namespace {

constexpr int iconSide = 64;

} // namespace

QMessageBox* uninstallAlert(QWidget& parent, const std::function<void()>& uninstall) {
    auto* alert = new QMessageBox(&parent);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowTitle("Mimkins");
    alert->setIconPixmap(QApplication::windowIcon().pixmap(iconSide));
    alert->setTextFormat(Qt::PlainText);
    alert->setText(qt::text(UninstallWords::title));
    alert->setInformativeText(qt::text(UninstallWords::message()));
    auto* yes = alert->addButton(qt::text(UninstallWords::confirm), QMessageBox::DestructiveRole);
    auto* no = alert->addButton(qt::text(UninstallWords::cancel), QMessageBox::RejectRole);
    alert->setDefaultButton(no); // a stray key press must do no harm
    alert->setEscapeButton(no);
    QObject::connect(yes, &QAbstractButton::clicked, &parent, uninstall);
    return alert;
}

} // namespace mimkins
