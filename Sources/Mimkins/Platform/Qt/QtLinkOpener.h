#pragma once

#include "Platform/LinkOpener.h"

namespace mimkins {

/// Opens links through the desktop's default handlers, and shows files in its file manager.
class QtLinkOpener final : public LinkOpener {
public:
    void openLink(const std::string& link) override;
    /// Asks the file manager to select the file; without one on the session bus, opens the file's folder.
    void showFile(const std::string& link) override;
    /// Asks the file manager, or without one the folders' default handler.
    void showFolder(const std::string& folder) override;
};

} // namespace mimkins
