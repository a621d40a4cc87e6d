#include "Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>

namespace mimkins {

bool outputIsTerminal() {
    return ::isatty(STDOUT_FILENO) == 1;
}

TableStyle outputStyle() {
    TableStyle style;
    if (!outputIsTerminal()) {
        return style;
    }
    constexpr std::size_t widthOfUnknownTerminal = 80;
    winsize size{};
    const bool known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    style.width = known ? size.ws_col : widthOfUnknownTerminal;
    // https://no-color.org: any value but the empty one switches colour off.
    const char* noColor = std::getenv("NO_COLOR");
    style.colored = noColor == nullptr || *noColor == '\0';
    return style;
}

} // namespace mimkins
