#include "Base/Json.h"

#include "Base/BlankEscapes.h"

#include <simdjson.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

namespace mimkins::json {

using Element = simdjson::dom::element;

static_assert(std::is_trivially_copyable_v<Element> && sizeof(Element) == 16 && alignof(Element) <= 8);

/// Turns the parser's element into a `Value` and back.
struct ValueAccess {
    static Value wrap(Element element) {
        Value value;
        std::memcpy(value.element_.data(), &element, sizeof element);
        value.exists_ = true;
        return value;
    }

    static std::optional<Element> unwrap(const Value& value) {
        if (!value.exists_) {
            return std::nullopt;
        }
        Element element;
        std::memcpy(static_cast<void*>(&element), value.element_.data(), sizeof element);
        return element;
    }
};

namespace {

/// The largest double below 2^63; whole numbers up to it convert exactly.
constexpr double largestWhole = 9'223'372'036'854'774'784.0;

/// Looks at the first byte before it compares the rest: keys of one length mostly differ there.
bool isSame(std::string_view left, std::string_view right) {
    return left.size() == right.size() && (left.empty() || left.front() == right.front()) && left == right;
}

template <typename Result>
std::optional<Result> get(const Value& value) {
    Result result{};
    const auto element = ValueAccess::unwrap(value);
    if (!element || element->get(result) != simdjson::SUCCESS) {
        return std::nullopt;
    }
    return result;
}

} // namespace

Type Value::type() const {
    const auto element = ValueAccess::unwrap(*this);
    if (!element) {
        return Type::null;
    }
    switch (element->type()) {
    case simdjson::dom::element_type::ARRAY:
        return Type::array;
    case simdjson::dom::element_type::OBJECT:
        return Type::object;
    case simdjson::dom::element_type::STRING:
        return Type::string;
    case simdjson::dom::element_type::BOOL:
        return Type::boolean;
    case simdjson::dom::element_type::INT64:
    case simdjson::dom::element_type::UINT64:
    case simdjson::dom::element_type::DOUBLE:
        return Type::number;
    case simdjson::dom::element_type::NULL_VALUE:
        break;
    }
    return Type::null;
}

std::optional<bool> Value::boolean() const {
    return get<bool>(*this);
}

std::optional<double> Value::number() const {
    return get<double>(*this);
}

std::optional<std::int64_t> Value::integer64() const {
    if (const auto whole = get<std::int64_t>(*this)) {
        return whole;
    }
    const auto number = get<double>(*this);
    if (!number || std::trunc(*number) != *number || std::fabs(*number) > largestWhole) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(*number);
}

std::optional<std::int32_t> Value::integer32() const {
    const auto whole = integer64();
    if (!whole || *whole < std::numeric_limits<std::int32_t>::min() ||
        *whole > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(*whole);
}

std::optional<std::string_view> Value::stringView() const {
    return get<std::string_view>(*this);
}

std::optional<std::string> Value::string() const {
    const auto view = stringView();
    return view ? std::optional<std::string>(*view) : std::nullopt;
}

Value Value::operator[](std::string_view key) const {
    Value found;
    findMembers({&key, 1}, {&found, 1});
    return found;
}

void Value::findMembers(std::span<const std::string_view> keys, std::span<Value> found) const {
    const auto object = get<simdjson::dom::object>(*this);
    if (!object) {
        return;
    }
    for (const auto [name, value] : *object) {
        for (std::size_t index = 0; index < keys.size(); ++index) {
            if (isSame(name, keys[index])) {
                found[index] = ValueAccess::wrap(value);
                break;
            }
        }
    }
}

std::vector<Value> Value::elements() const {
    std::vector<Value> result;
    elements(result);
    return result;
}

void Value::elements(std::vector<Value>& into) const {
    into.clear();
    if (const auto array = get<simdjson::dom::array>(*this)) {
        for (const Element element : *array) {
            into.push_back(ValueAccess::wrap(element));
        }
    }
}

struct Document::Storage {
    simdjson::dom::parser parser;
    Element root;
};

std::optional<Document> Document::parse(std::string_view text) {
    auto storage = std::make_unique<Storage>();
    if (storage->parser.parse(text.data(), text.size()).get(storage->root) != simdjson::SUCCESS) {
        return std::nullopt;
    }
    return Document(std::move(storage));
}

Document::Document(std::unique_ptr<Storage> storage) : storage_(std::move(storage)) {}

Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;
Document::~Document() = default;

Value Document::root() const {
    return ValueAccess::wrap(storage_->root);
}

static_assert(Parser::padding >= simdjson::SIMDJSON_PADDING);

struct Parser::Storage {
    simdjson::dom::parser parser;
    std::string padded;
};

Parser::Parser() : storage_(std::make_unique<Storage>()) {}

Parser::Parser(Parser&&) noexcept = default;
Parser& Parser::operator=(Parser&&) noexcept = default;
Parser::~Parser() = default;

Value Parser::parse(std::string_view text, std::size_t readableBehind) {
    const std::size_t length = text.size();
    const char* bytes = text.data();
    if (readableBehind < padding) {
        storage_->padded.assign(text);
        storage_->padded.append(padding, ' ');
        bytes = storage_->padded.data();
    }
    Element root;
    if (storage_->parser.parse(bytes, length, false).get(root) != simdjson::SUCCESS) {
        return {};
    }
    return ValueAccess::wrap(root);
}

Value Parser::parseBlanked(std::string_view text) {
    auto& padded = storage_->padded;
    if (padded.size() < text.size() + padding) {
        padded.resize(text.size() + padding);
    }
    Element root;
    if (!blankEscapes(text, padded.data()) ||
        storage_->parser.parse(padded.data(), text.size(), false).get(root) != simdjson::SUCCESS) {
        return {};
    }
    return ValueAccess::wrap(root);
}

} // namespace mimkins::json
