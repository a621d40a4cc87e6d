#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Reading of outside JSON. A document is parsed whole without recursion: nesting deeper than 1,024 levels,
/// invalid UTF-8, numbers out of range and trailing text make it unreadable. Of a key that stands twice in an
/// object the last value holds. Nothing here throws.
namespace mimkins::json {

class Document;

enum class Type { null, boolean, number, string, array, object };

/// A value inside a document; a cheap copyable reference that is valid while its document lives. The default
/// value is a missing one, on which every cast fails.
class Value {
public:
    Value() = default;

    bool exists() const { return exists_; }

    /// The value's type; a missing value counts as null.
    Type type() const;

    bool isNull() const { return type() == Type::null; }

    bool isObject() const { return type() == Type::object; }

    bool isArray() const { return type() == Type::array; }

    /// Casts that succeed only on the right JSON type. Booleans aren't numbers.
    std::optional<bool> boolean() const;
    std::optional<double> number() const;
    /// A number without a fraction that fits, written "12" or "12.0".
    std::optional<std::int32_t> integer32() const;
    std::optional<std::int64_t> integer64() const;
    std::optional<std::string> string() const;
    /// The text without a copy; valid while the document lives.
    std::optional<std::string_view> stringView() const;

    /// The value under a key of an object; missing if this is no object or lacks the key.
    Value operator[](std::string_view key) const;

    /// The values under several keys, as `[]` gives them, found in one go through the object.
    template <std::size_t Count>
    std::array<Value, Count> members(const std::array<std::string_view, Count>& keys) const {
        std::array<Value, Count> found;
        findMembers(keys, found);
        return found;
    }

    /// The elements of an array; none if this is no array.
    std::vector<Value> elements() const;
    /// The same into a vector whose memory is used again.
    void elements(std::vector<Value>& into) const;

private:
    friend struct ValueAccess;
    void findMembers(std::span<const std::string_view> keys, std::span<Value> found) const;

    // The parser's own element, kept as bytes so that its large header stays out of this one.
    alignas(8) std::array<std::byte, 16> element_{};
    bool exists_ = false;
};

/// A parsed document.
class Document {
public:
    /// Nothing if the text isn't one JSON value.
    static std::optional<Document> parse(std::string_view text);

    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;
    ~Document();

    Value root() const;

private:
    struct Storage;
    explicit Document(std::unique_ptr<Storage> storage);
    std::unique_ptr<Storage> storage_;
};

/// Parses one text after the other with the same memory. Use it for the lines of a file.
class Parser {
public:
    /// With this many readable bytes behind a text it is parsed where it stands, else it is copied first.
    static constexpr std::size_t padding = 64;

    Parser();
    Parser(Parser&&) noexcept;
    Parser& operator=(Parser&&) noexcept;
    ~Parser();

    /// The root value, valid until the next parse; a missing one if the text isn't one JSON value.
    /// `readableBehind` is the number of bytes behind the text's end that may be read, whatever they are.
    Value parse(std::string_view text, std::size_t readableBehind = 0);

    /// As `parse`, but every escape sequence of two characters reads as two `blank` ones. For a long text
    /// with many such sequences it takes half the time. Missing, too, if the text has other sequences or the
    /// processor no quick way to do it.
    Value parseBlanked(std::string_view text);

private:
    struct Storage;
    std::unique_ptr<Storage> storage_;
};

} // namespace mimkins::json
