#pragma once

#include "App/Options.h"
#include "Platform/Linux/DemoHome.h"

#include <QProcess>

#include <string>

namespace mimkins {

/// A crew of made-up sessions that lives beside the application, in a throw-away home. `mimkin demo` plays it
/// as a child process, which ends with this one, however that ends.
class Demo {
public:
    /// Takes the home that the options name, or makes one. Throws an `Error` if it can't be had.
    explicit Demo(const Options& options);
    Demo(const Demo&) = delete;
    Demo& operator=(const Demo&) = delete;
    ~Demo();

    const std::string& home() const { return home_.path(); }

    /// Starts the player, which stands beside this program. Throws an `Error` if it can't be started.
    void start();

    /// Ends the player and waits until it has. A home that was made for it is gone then.
    void end();

private:
    const Options options_;
    DemoHome home_;
    QProcess player_;
};

} // namespace mimkins
