#include "Platform/Linux/JsonPreferencesStore.h"

#include "Base/Error.h"
#include "Base/Json.h"
#include "Base/Log.h"
#include "Base/Text.h"
#include "Platform/Linux/AtomicFile.h"
#include "Platform/Linux/LinuxFileSystem.h"

#include <nlohmann/json.hpp>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <system_error>
#include <type_traits>
#include <utility>

namespace mimkins {

namespace {

using Tree = nlohmann::json;

constexpr std::size_t sizeLimit = std::size_t{4} * 1'024 * 1'024;
constexpr mode_t usualMode = 0600;

void logFailure(const std::string& text) {
    log::write(log::Level::error, "preferences", text);
}

/// The object in a preferences file. A missing or empty file is an empty object; nothing tells of a broken
/// one.
std::optional<Tree> load(const std::string& path) {
    struct stat facts {};

    if (::lstat(path.c_str(), &facts) != 0 && (errno == ENOENT || errno == ENOTDIR)) {
        return Tree::object();
    }
    const auto bytes = LinuxFileSystem().readFile(path, sizeLimit);
    if (!bytes) {
        return std::nullopt;
    }
    if (text::trimmed(*bytes).empty()) {
        return Tree::object();
    }
    // The strict parser goes first: what it accepts is neither too deep nor invalid text.
    if (!mimkins::json::Document::parse(*bytes)) {
        return std::nullopt;
    }
    auto parsed = nlohmann::json::parse(*bytes, nullptr, false);
    return parsed.is_object() ? std::optional(std::move(parsed)) : std::nullopt;
}

Tree toJson(const PreferencesStore::Value& value) {
    return std::visit(
        [](const auto& held) -> Tree {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::string>) {
                return text::repairUtf8(held);
            } else if constexpr (std::is_same_v<Held, double>) {
                return std::isfinite(held) ? Tree(held) : Tree();
            } else {
                return held;
            }
        },
        value
    );
}

std::optional<PreferencesStore::Value> fromJson(const Tree& value) {
    switch (value.type()) {
    case Tree::value_t::boolean:
        return value.get<bool>();
    case Tree::value_t::number_integer:
        return value.get<std::int64_t>();
    case Tree::value_t::number_unsigned:
        if (value.get<std::uint64_t>() > std::numeric_limits<std::int64_t>::max()) {
            return std::nullopt;
        }
        return value.get<std::int64_t>();
    case Tree::value_t::number_float:
        return value.get<double>();
    case Tree::value_t::string:
        return value.get<std::string>();
    default:
        return std::nullopt;
    }
}

/// The place that the path's link leads to, so that a link into somebody's collection of settings survives.
std::string behindLinks(const std::string& path) {
    std::error_code error;
    const auto target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

mode_t modeOf(const std::string& path) {
    struct stat facts {};

    constexpr mode_t permissions = 0777;
    return ::stat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) ? facts.st_mode & permissions
                                                                       : usualMode;
}

/// Renames a file to a name beside it that is free: ".broken", ".broken-2" and so on.
void setBesides(const std::string& path) {
    constexpr int most = 100;
    std::string free = path + ".broken";
    std::error_code error;
    for (int number = 2; number <= most && std::filesystem::symlink_status(free, error).type() !=
                                               std::filesystem::file_type::not_found;
         ++number) {
        free = path + ".broken-" + std::to_string(number);
    }
    if (::rename(path.c_str(), free.c_str()) != 0) {
        throw Error::posix(errno, "Couldn't set " + path + " aside");
    }
    logFailure("The preferences in " + path + " can't be read; they are kept as " + free);
}

} // namespace

struct JsonPreferencesStore::Contents {
    Tree object = Tree::object();
};

JsonPreferencesStore::JsonPreferencesStore(std::string folder, const std::string& domain)
    : folder_(std::move(folder)), path_(folder_ + "/" + domain + ".json"),
      contents_(std::make_unique<Contents>()) {
    if (auto object = load(path_)) {
        contents_->object = std::move(*object);
    } else {
        logFailure("The preferences in " + path_ + " can't be read and count as empty");
    }
}

JsonPreferencesStore::~JsonPreferencesStore() = default;

std::optional<PreferencesStore::Value> JsonPreferencesStore::value(const std::string& key) const {
    const auto entry = contents_->object.find(key);
    return entry == contents_->object.end() ? std::nullopt : fromJson(*entry);
}

void JsonPreferencesStore::set(const std::string& key, const Value& value) {
    apply(key, value);
}

void JsonPreferencesStore::remove(const std::string& key) {
    apply(key, std::nullopt);
}

void JsonPreferencesStore::apply(const std::string& key, const Change& change) {
    unwritten_[key] = change;
    auto present = load(path_);
    const bool broken = !present.has_value();
    const Tree before = broken ? Tree() : *present;
    Tree& object = contents_->object;
    if (present) {
        object = std::move(*present);
    }
    for (const auto& [changedKey, value] : unwritten_) {
        if (value) {
            object[changedKey] = toJson(*value);
        } else {
            object.erase(changedKey);
        }
    }
    if (object.dump() == before.dump()) {
        unwritten_.clear();
        return;
    }
    try {
        write(broken);
        unwritten_.clear();
    } catch (const Error& error) {
        logFailure(error.what());
    }
}

void JsonPreferencesStore::write(bool setAside) {
    constexpr int indentation = 2;
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    const auto target = behindLinks(path_);
    AtomicFile file(target, contents_->object.dump(indentation) + "\n", modeOf(target));
    // Only now, since whatever keeps a file from being read may also keep a new one from being written.
    if (setAside) {
        setBesides(target);
    }
    file.replace();
}

void JsonPreferencesStore::removeAll() {
    contents_->object = Tree::object();
    unwritten_.clear();
    if (::unlink(path_.c_str()) != 0 && errno != ENOENT) {
        logFailure(Error::posix(errno, "Couldn't remove " + path_).what());
    }
    ::rmdir(folder_.c_str()); // succeeds only when nothing else is in it
}

} // namespace mimkins
