#include "HookInstaller/SettingsText.h"

#include "Base/Error.h"
#include "Base/Text.h"
#include "HookInstaller/NumberTokens.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <utility>

namespace mimkins {

namespace {

constexpr const char* jsonDomain = "JSON";
constexpr int notAnObject = 1;

[[noreturn]] void throwInvalid(int code, const std::string& reason) {
    throw Error(jsonDomain, code, "settings.json isn't valid JSON: " + reason);
}

/// The parser's own words without its name in front and the text it last read behind, which may be long.
std::string reason(const std::string& words) {
    const auto end = words.find("; last read");
    auto start = words.find("] ");
    start = start == std::string::npos ? 0 : start + 2;
    return text::repairUtf8(words.substr(start, end == std::string::npos ? end : end - start));
}

/// Builds a value from a parser's events, with the numbers that were set aside.
class Builder final : public nlohmann::json_sax<nlohmann::json> {
public:
    explicit Builder(std::vector<std::string> numbers) : numbers_(std::move(numbers)) {}

    bool null() override { return add({nullptr}); }

    bool boolean(bool value) override { return add({value}); }

    bool number_integer(number_integer_t /*value*/) override { return addNumber(); }

    bool number_unsigned(number_unsigned_t /*value*/) override { return addNumber(); }

    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return addNumber(); }

    bool string(string_t& value) override { return add({std::move(value)}); }

    bool binary(binary_t& /*value*/) override { return false; }

    bool start_object(std::size_t /*size*/) override { return open({SettingsObject{}}); }

    bool key(string_t& value) override {
        key_ = std::move(value);
        return true;
    }

    bool end_object() override { return close(); }

    bool start_array(std::size_t /*size*/) override { return open({SettingsArray{}}); }

    bool end_array() override { return close(); }

    bool parse_error(
        std::size_t /*position*/, const std::string& /*token*/, const nlohmann::detail::exception& error
    ) override {
        throwInvalid(error.id, reason(error.what()));
    }

    SettingsValue take() { return std::move(root_); }

private:
    SettingsValue* place(SettingsValue value) {
        if (open_.empty()) {
            root_ = std::move(value);
            return &root_;
        }
        if (auto* array = open_.back()->array()) {
            return &array->emplace_back(std::move(value));
        }
        return &open_.back()->object()->insert_or_assign(std::move(key_), std::move(value)).first->second;
    }

    bool add(SettingsValue value) {
        place(std::move(value));
        return true;
    }

    bool addNumber() { return add({SettingsNumber{std::move(numbers_.at(nextNumber_++))}}); }

    bool open(SettingsValue value) {
        if (open_.size() == deepestSettings) {
            throw Error(
                jsonDomain, 0,
                "settings.json is nested deeper than " + std::to_string(deepestSettings) +
                    " levels, so it was left alone."
            );
        }
        open_.push_back(place(std::move(value)));
        return true;
    }

    bool close() {
        open_.pop_back();
        return true;
    }

    std::vector<std::string> numbers_;
    std::size_t nextNumber_ = 0;
    SettingsValue root_;
    std::string key_;
    /// The arrays and objects that are being filled. A container isn't touched while one inside it is open,
    /// so the addresses hold.
    std::vector<SettingsValue*> open_;
};

/// Writes values; nesting is limited when they are read.
class Writer {
public:
    void write(const SettingsValue& value) {
        std::visit([this](const auto& content) { writeContent(content); }, value.content);
    }

    void writeContent(const SettingsObject& object) {
        writeMembers('{', '}', object, [this](const auto& member) {
            writeContent(member.first);
            result_ += ": ";
            write(member.second);
        });
    }

    std::string take() { return std::move(result_); }

private:
    void writeContent(std::nullptr_t /*value*/) { result_ += "null"; }

    void writeContent(bool value) { result_ += value ? "true" : "false"; }

    void writeContent(const SettingsNumber& number) { result_ += number.text; }

    void writeContent(const std::string& string) { result_ += nlohmann::json(string).dump(); }

    void writeContent(const SettingsArray& array) {
        writeMembers('[', ']', array, [this](const SettingsValue& value) { write(value); });
    }

    template <typename Members, typename WriteMember>
    void writeMembers(char first, char last, const Members& members, WriteMember writeMember) {
        result_ += first;
        ++level_;
        bool isFirst = true;
        for (const auto& member : members) {
            result_ += std::exchange(isFirst, false) ? "" : ",";
            breakLine();
            writeMember(member);
        }
        --level_;
        if (!members.empty()) {
            breakLine();
        }
        result_ += last;
    }

    void breakLine() { result_.append(1, '\n').append(level_ * 2, ' '); }

    std::string result_;
    std::size_t level_ = 0;
};

} // namespace

SettingsObject parseSettings(std::string_view text) {
    if (text.find('\0') != std::string_view::npos) {
        // The parser takes such a byte for the end and would drop what follows.
        throwInvalid(0, "it holds a NUL byte");
    }
    NumberTokens tokens = setNumbersAside(text);
    Builder builder(std::move(tokens.numbers));
    nlohmann::json::sax_parse(tokens.text, &builder);
    SettingsValue root = builder.take();
    if (root.object() == nullptr) {
        throw Error(
            Error::ownDomain, notAnObject, "settings.json isn't a JSON object, so it was left alone."
        );
    }
    return std::move(*root.object());
}

std::string serialiseSettings(const SettingsObject& root) {
    try {
        Writer writer;
        writer.writeContent(root);
        return writer.take() + "\n";
    } catch (const nlohmann::json::exception& error) {
        throw Error(jsonDomain, error.id, reason(error.what()));
    }
}

} // namespace mimkins
