#pragma once

#include <stdexcept>
#include <string>

namespace mimkins {

/// A failure that the user can act on. `what()` is the description as it is shown.
class Error : public std::runtime_error {
public:
    /// The application's own failures; codes are listed where they are thrown.
    static constexpr const char* ownDomain = "Mimkins";
    /// Failures of the operating system; the code is an errno value.
    static constexpr const char* posixDomain = "POSIX";

    Error(std::string domain, int code, const std::string& description)
        : std::runtime_error(description), domain_(std::move(domain)), code_(code) {}

    /// A failure of the operating system, described in its own words, with what was tried in front.
    static Error posix(int errorNumber, const std::string& attempt);

    const std::string& domain() const { return domain_; }

    int code() const { return code_; }

private:
    std::string domain_;
    int code_;
};

} // namespace mimkins
