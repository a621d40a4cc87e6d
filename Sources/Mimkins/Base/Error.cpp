#include "Base/Error.h"

#include <system_error>

namespace mimkins {

Error Error::posix(int errorNumber, const std::string& attempt) {
    const std::string words = std::generic_category().message(errorNumber);
    return {posixDomain, errorNumber, attempt.empty() ? words : attempt + ": " + words};
}

} // namespace mimkins
