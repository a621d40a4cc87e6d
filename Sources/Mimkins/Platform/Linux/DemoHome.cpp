#include "Platform/Linux/DemoHome.h"

#include "Base/Error.h"
#include "Base/Paths.h"
#include "Platform/Linux/AtomicFile.h"
#include "Platform/Linux/HomeFolder.h"

#include <sys/file.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

namespace mimkins {

namespace {

namespace fs = std::filesystem;

constexpr int refusedCode = 40;
constexpr const char* markText =
    "Mimkins plays made-up sessions in this folder, and may empty or remove it.\n";

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
    throw Error(Error::ownDomain, refusedCode, path + " " + reason);
}

std::string withoutLinks(const std::string& path) {
    std::error_code failure;
    const auto result = fs::weakly_canonical(path, failure);
    if (failure) {
        throw Error::posix(failure.value(), path);
    }
    const std::string text = result.lexically_normal().string();
    return text.size() > 1 && text.back() == '/' ? text.substr(0, text.size() - 1) : text;
}

/// The home folder by the password database and by the environment, which may differ.
std::vector<std::string> ownHomes() {
    std::vector<std::string> homes;
    if (const auto home = homeFolder()) {
        homes.push_back(*home);
    }
    const char* variable = std::getenv("HOME"); // NOLINT: no other thread changes the environment
    if (variable != nullptr && *variable == '/') {
        homes.emplace_back(variable);
    }
    return homes;
}

void refuseOwnHome(const std::string& path) {
    for (const auto& home : ownHomes()) {
        std::error_code failure;
        const bool same = fs::equivalent(path, home, failure);
        if ((!failure && same) || path == home) {
            refuse(path, "is your own home folder; a demo needs one to throw away");
        }
    }
}

} // namespace

DemoHome::DemoHome(const std::string& path) : path_(withoutLinks(path)) {
    refuseOwnHome(path_);
    std::error_code failure;
    const auto kind = fs::status(path_, failure).type();
    if (kind == fs::file_type::not_found) {
        fs::create_directories(path_, failure);
        if (failure) {
            throw Error::posix(failure.value(), path_);
        }
        fs::permissions(path_, fs::perms::owner_all, failure);
    } else if (kind != fs::file_type::directory) {
        refuse(path_, "isn't a folder");
    }
    if (isMarked()) {
        return;
    }
    if (!fs::is_empty(path_, failure) || failure) {
        refuse(path_, "isn't empty and wasn't made for a demo; name a new folder");
    }
    constexpr mode_t mode = 0600;
    AtomicFile(markPath(), markText, mode, Durability::cached).replace();
}

DemoHome DemoHome::temporary() {
    std::error_code failure;
    std::string path = (fs::temp_directory_path(failure) / "mimkins-demo-XXXXXX").string();
    if (failure || ::mkdtemp(path.data()) == nullptr) {
        throw Error::posix(failure ? failure.value() : errno, path);
    }
    return DemoHome(path);
}

bool DemoHome::isMarked() const {
    struct stat facts {};

    return ::lstat(markPath().c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_uid == ::geteuid();
}

void DemoHome::lock() {
    lock_ = FileDescriptor(::open(markPath().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    if (!lock_) {
        throw Error::posix(errno, markPath());
    }
    if (::flock(lock_.get(), LOCK_EX | LOCK_NB) != 0) {
        refuse(path_, "has a demo playing in it already");
    }
}

void DemoHome::clear() const {
    const Paths paths(path_);
    const std::vector<std::string> folders{
        paths.sessions(), paths.clientRegistry(), paths.clientProjects(), paths.desktopSessions(),
        path_ + "/Projects"};
    for (const auto& folder : folders) {
        // The folders themselves stay, since somebody may be watching them.
        std::error_code failure;
        if (fs::weakly_canonical(folder, failure) != folder) {
            continue; // A link, which leads who knows where.
        }
        for (const auto& entry : fs::directory_iterator(folder, failure)) {
            std::error_code ignored;
            fs::remove_all(entry.path(), ignored);
        }
    }
}

void DemoHome::remove() const noexcept {
    try {
        if (isMarked()) {
            std::error_code failure;
            fs::remove_all(path_, failure);
        }
    } catch (const std::exception&) {
        return; // Out of memory; the system clears its temporary folder by itself.
    }
}

} // namespace mimkins
