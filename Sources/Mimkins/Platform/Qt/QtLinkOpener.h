#pragma once

#include "Platform/LinkOpener.h"

#include <QObject>

#include <functional>

class QUrl;

namespace mimkins {

/// Opens links through the desktop's default handlers, and shows files in its file manager.
class QtLinkOpener final : public LinkOpener {
public:
    void openLink(const std::string& link) override;
    /// Asks the file manager to select the file; without one on the session bus, opens the file's folder.
    void showFile(const std::string& link) override;
    /// Asks the file manager, or without one the folders' default handler.
    void showFolder(const std::string& folder) override;

    /// Runs the work once the file manager has answered all that it was asked, at once if it has; after some
    /// seconds in any case. What was asked before the end of the process has then arrived.
    void whenAnswered(std::function<void()> work);

private:
    void askFileManager(const QString& method, const QUrl& item, const std::function<void()>& otherwise);
    void goOn();

    int unanswered_ = 0;
    std::function<void()> afterwards_;
    QObject context_; ///< ends what is still awaited
};

} // namespace mimkins
