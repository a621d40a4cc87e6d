#pragma once

#include "Base/Paths.h"
#include "Platform/LoginService.h"

#include <string>

namespace mimkins {

/// The login item as an XDG autostart entry. An entry that says Hidden=true, or that the desktop has switched
/// off, is there but not on.
class AutostartService final : public LoginService {
public:
    /// `program` is the absolute path of the application.
    AutostartService(const Paths& paths, std::string program);

    void registerItem() override;
    void unregisterItem() override;
    Status status() const override;

private:
    std::string entry_;
    std::string program_;
};

} // namespace mimkins
