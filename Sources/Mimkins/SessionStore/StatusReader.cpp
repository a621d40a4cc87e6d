#include "SessionStore/StatusReader.h"

#include "Base/Json.h"
#include "Base/Text.h"

namespace mimkins {

namespace {

/// A record holds short strings; anything larger isn't one.
constexpr std::size_t largestStatusFile = 1 << 20;

bool isStatusFile(std::string_view name) {
    return name.front() != '.' && text::pathExtension(name) == "json";
}

/// Takes typed fields off an object and remembers whether one was of the wrong type.
class StrictFields {
public:
    explicit StrictFields(json::Value object) : object_(object), good_(object.isObject()) {}

    std::string requiredString(std::string_view key) {
        auto text = optionalString(key);
        good_ = good_ && text;
        return text.value_or("");
    }

    double requiredNumber(std::string_view key) {
        const auto number = object_[key].number();
        good_ = good_ && number;
        return number.value_or(0);
    }

    std::optional<std::string> optionalString(std::string_view key) {
        const auto field = object_[key];
        if (field.isNull()) {
            return std::nullopt;
        }
        auto text = field.string();
        good_ = good_ && text;
        return text;
    }

    std::optional<std::int32_t> optionalInteger32(std::string_view key) {
        const auto field = object_[key];
        if (field.isNull()) {
            return std::nullopt;
        }
        const auto number = field.integer32();
        good_ = good_ && number;
        return number;
    }

    bool good() const { return good_; }

private:
    json::Value object_;
    bool good_;
};

} // namespace

std::optional<StatusRecord> parseStatusRecord(std::string_view text) {
    const auto document = json::Document::parse(text);
    if (!document) {
        return std::nullopt;
    }
    StrictFields fields(document->root());
    StatusRecord record;
    record.state = fields.requiredString("state");
    record.since = fields.requiredNumber("since");
    record.id = fields.requiredString("id");
    record.event = fields.requiredString("event");
    record.tool = fields.optionalString("tool");
    record.detail = fields.optionalString("detail");
    record.message = fields.optionalString("message");
    record.notification = fields.optionalString("notification");
    record.cwd = fields.optionalString("cwd");
    record.project = fields.optionalString("project");
    record.transcript = fields.optionalString("transcript");
    record.effort = fields.optionalString("effort");
    record.model = fields.optionalString("model");
    record.ts = fields.requiredNumber("ts");
    record.agent = fields.optionalString("agent");
    record.title = fields.optionalString("title");
    record.pid = fields.optionalInteger32("pid");
    record.open = fields.optionalString("open");
    return fields.good() ? std::optional(std::move(record)) : std::nullopt;
}

StatusReader::StatusReader(const FileSystem& files)
    : documents_(files, {isStatusFile, parseStatusRecord, largestStatusFile}) {}

std::map<std::string, StatusRecord> StatusReader::read(const std::vector<std::string>& folders, Date now) {
    std::map<std::string, StatusRecord> records;
    documents_.forEach(folders, now, [&records](const StatusRecord& record) {
        const auto held = records.find(record.id);
        if ((held != records.end() ? held->second.ts : 0) <= record.ts) {
            records.insert_or_assign(record.id, record);
        }
    });
    return records;
}

std::map<std::string, StatusRecord>
readStatusRecords(const FileSystem& files, const std::vector<std::string>& folders) {
    return StatusReader(files).read(folders, {});
}

} // namespace mimkins
