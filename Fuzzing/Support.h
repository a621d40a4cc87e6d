#pragma once

#include "HookInstaller/SettingsValue.h"
#include "Session/Derivation.h"
#include "Support/MemoryFileSystem.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the fuzzers share: how an input is cut, and what must hold of whatever is made of it.
namespace mimkins::fuzz {

/// The moment that every fuzzer takes for the present.
inline constexpr Date now{1'795'248'000};

/// Ends the run with these words unless the property holds.
void require(bool holds, const char* property);

inline std::string_view asText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// The pieces of an input between record separators (1E), which stand for the files of one folder. JSON has
/// no place for that byte, so no document is cut by it.
std::vector<std::string_view> pieces(std::string_view input);

/// The pieces as "0.json", "1.json" and so on in the folder; those behind the ninth don't count, so that the
/// names keep their order.
test::MemoryFileSystem asFiles(const std::vector<std::string_view>& pieces, const std::string& folder);

/// JSON documents to be read back, built field by field.
class DocumentWriter {
public:
    void add(const char* key, const std::string& text);
    void add(const char* key, const std::optional<std::string>& text);
    void add(const char* key, double number);
    void add(const char* key, bool value);

    /// The document as text.
    std::string text() const;

private:
    SettingsObject root_;
};

/// Derives a session and shows it in every way that needs no window; requires of each what its description
/// promises.
void requireSoundSession(const SessionInputs& inputs);

} // namespace mimkins::fuzz
