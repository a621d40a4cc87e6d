#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The program's log: one subsystem, a category per concern. Where lines go is decided once at start.
namespace mimkins::log {

/// The subsystem under which every line stands.
inline constexpr std::string_view subsystem = "app.mimkins";

enum class Level { standard, error, fault };

struct Line {
    Level level = Level::standard;
    std::string_view category;
    std::string_view text;
};

/// Replaces where lines go; an empty function drops them. Called before any other thread exists.
void setSink(std::function<void(const Line&)> sink);

void write(Level level, std::string_view category, std::string_view text);

} // namespace mimkins::log
