#include "Platform/Linux/AutostartService.h"

#include "Base/Error.h"
#include "Base/Text.h"
#include "Platform/Linux/AtomicFile.h"
#include "Platform/Linux/LinuxFileSystem.h"

#include <cerrno>
#include <cstdio>
#include <string_view>
#include <utility>

namespace mimkins {

namespace {

constexpr std::size_t largestEntry = 65'536; // bytes
constexpr mode_t entryMode = 0644;

/// An argument of an Exec line, in quotes, with what means something there escaped.
std::string quoted(std::string_view word) {
    std::string result = "\"";
    for (const char character : word) {
        if (character == '%') {
            result += "%%";
            continue;
        }
        // The line is unescaped twice: as a string of the entry, and as a quoted argument.
        if (character == '\\') {
            result += "\\\\\\\\";
            continue;
        }
        if (character == '"' || character == '`' || character == '$') {
            result += "\\\\";
        }
        result += character;
    }
    return result + "\"";
}

std::string entryText(const std::string& program) {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Mimkins\n"
           "Comment=Shows every coding-agent session as a pet at the edge of the screen\n"
           "Exec=" +
           quoted(program) +
           "\n"
           "Icon=app.mimkins\n"
           "Terminal=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

/// The lower-cased value of a key in the entry's main group; empty for none.
std::string valueOf(const std::string& text, std::string_view key) {
    bool inMainGroup = false;
    std::string value;
    for (const std::string_view line : text::splitDroppingEmpty(text, '\n')) {
        const std::string trimmed = text::trimmed(line);
        if (!trimmed.empty() && trimmed.front() == '[') {
            inMainGroup = trimmed == "[Desktop Entry]";
            continue;
        }
        const auto equals = trimmed.find('=');
        if (!inMainGroup || equals == std::string::npos || text::trimmed(trimmed.substr(0, equals)) != key) {
            continue;
        }
        value = text::lowercase(text::trimmed(trimmed.substr(equals + 1)));
    }
    return value;
}

} // namespace

AutostartService::AutostartService(const Paths& paths, std::string program)
    : entry_(paths.autostartEntry()), program_(std::move(program)) {}

void AutostartService::registerItem() {
    const std::string folder = entry_.substr(0, entry_.rfind('/'));
    if (!LinuxFileSystem().createFolders(folder)) {
        throw Error::posix(errno, "Couldn't make " + folder);
    }
    AtomicFile(entry_, entryText(program_), entryMode).replace();
}

void AutostartService::unregisterItem() {
    if (std::remove(entry_.c_str()) != 0 && errno != ENOENT) {
        throw Error::posix(errno, "Couldn't remove " + entry_);
    }
}

LoginService::Status AutostartService::status() const {
    const auto text = LinuxFileSystem().readFile(entry_, largestEntry);
    if (!text) {
        return Status::notRegistered;
    }
    const bool isOff =
        valueOf(*text, "Hidden") == "true" || valueOf(*text, "X-GNOME-Autostart-enabled") == "false";
    return isOff ? Status::disabledByUser : Status::enabled;
}

} // namespace mimkins
