#pragma once

#include <spawn.h>

#include <string>
#include <vector>

namespace mimkins {

/// What a new process starts with: its files and its attributes, given back at the end of the object.
struct SpawnSetup {
    SpawnSetup() {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawnattr_init(&attributes);
    }

    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;

    ~SpawnSetup() {
        ::posix_spawn_file_actions_destroy(&actions);
        ::posix_spawnattr_destroy(&attributes);
    }

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

/// Words as a new process takes them, with a null pointer behind the last. They point into the words.
inline std::vector<char*> pointers(std::vector<std::string>& words) {
    std::vector<char*> result;
    result.reserve(words.size() + 1);
    for (auto& word : words) {
        result.push_back(word.data());
    }
    result.push_back(nullptr);
    return result;
}

} // namespace mimkins
