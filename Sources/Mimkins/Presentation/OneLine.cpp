#include "Presentation/OneLine.h"

#include "Base/Text.h"

namespace mimkins {

std::string onOneLine(std::string_view words) {
    std::string line = text::repairUtf8(words);
    for (auto& byte : line) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 || code == 0x7F) {
            byte = ' ';
        }
    }
    return text::trimmed(line);
}

} // namespace mimkins
