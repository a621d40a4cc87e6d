#include "Base/Json.h"

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
    const auto object = get<simdjson::dom::object>(*this);
    Value found;
    if (object) {
        for (const auto& field : *object) {
            if (field.key == key) {
                found = ValueAccess::wrap(field.value);
            }
        }
    }
    return found;
}

std::vector<Value> Value::elements() const {
    std::vector<Value> result;
    if (const auto array = get<simdjson::dom::array>(*this)) {
        for (const Element element : *array) {
            result.push_back(ValueAccess::wrap(element));
        }
    }
    return result;
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

} // namespace mimkins::json
