#pragma once

#include <functional>

class QMessageBox;
class QWidget;

namespace mimkins {

/// The question that comes before the application is taken off the machine, yet to be opened. It goes by
/// itself when it is answered; `uninstall` is called if the answer is yes.
QMessageBox* uninstallAlert(QWidget& parent, const std::function<void()>& uninstall);

} // namespace mimkins
