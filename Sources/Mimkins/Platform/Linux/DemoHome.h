#pragma once

#include "Platform/Linux/FileDescriptor.h"

#include <string>

namespace mimkins {

/// A throw-away home folder in which made-up sessions live. A file in it marks it as one. What isn't marked
/// is only taken if it is new or empty, and the user's own home folder never is.
class DemoHome {
public:
    /// Makes the folder if it is missing, and marks it. `path` is absolute. Throws an `Error` that says why
    /// the folder isn't taken.
    explicit DemoHome(const std::string& path);

    /// A new folder where the system keeps temporary files. Throws an `Error` if none can be made.
    static DemoHome temporary();

    /// Without links, whatever it was called by.
    const std::string& path() const { return path_; }

    /// Keeps others from playing here as long as the object lives. Throws an `Error` if one plays already.
    void lock();

    /// Empties the folders that a player fills, so that nothing of an earlier one is left.
    void clear() const;

    /// Removes the folder with all that is in it, if it is still marked. Failures leave some of it behind.
    void remove() const noexcept;

    /// The name of the file that marks the folder.
    static constexpr const char* markName = ".mimkins-demo-home";

private:
    std::string markPath() const { return path_ + "/" + markName; }

    bool isMarked() const;

    std::string path_;
    FileDescriptor lock_;
};

} // namespace mimkins
