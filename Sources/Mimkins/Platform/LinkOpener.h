#pragma once

#include <string>

namespace mimkins {

/// Hands links over to the desktop. Nothing is awaited, and failures are logged where they become known.
class LinkOpener {
public:
    virtual ~LinkOpener() = default;

    /// Opens a link with its default handler.
    virtual void openLink(const std::string& link) = 0;

    /// Shows a file in its folder without opening it. `link` is a file link.
    virtual void showFile(const std::string& link) = 0;

    /// Shows what is in a folder, by its path. Anything but a folder is left alone.
    virtual void showFolder(const std::string& folder) = 0;
};

} // namespace mimkins
