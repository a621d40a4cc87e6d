#pragma once

#include "Platform/KeptReading.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mimkins {

/// The documents of some folders, looked at again and again: each is read only when its file has changed.
template <typename Value>
class KeptDocuments {
public:
    /// How a document becomes a value; nothing if it can't be used.
    using Parse = std::optional<Value> (*)(std::string_view text);
    using Wanted = bool (*)(std::string_view name);

    struct Kind {
        Wanted wanted; ///< by a file's name
        Parse parse;
        std::size_t largest = 0; ///< bytes; a longer file is none
    };

    /// The files outlive this.
    KeptDocuments(const FileSystem& files, const Kind& kind) : files_(&files), kind_(kind) {}

    /// Shows each document that can be used: folder by folder, in the order of the names.
    template <typename Visit>
    void forEach(const std::vector<std::string>& folders, Date now, Visit visit) {
        std::map<std::string, Document> seen;
        for (const auto& folder : folders) {
            for (const auto& name : files_->list(folder)) {
                if (!kind_.wanted(name)) {
                    continue;
                }
                if (const auto& value = present(folder + "/" + name, now, seen)) {
                    visit(*value);
                }
            }
        }
        documents_ = std::move(seen);
    }

private:
    using Document = KeptReading<std::optional<Value>>;

    const std::optional<Value>&
    present(const std::string& path, Date now, std::map<std::string, Document>& seen) {
        const auto stamp = files_->stamp(path);
        auto known = documents_.extract(path);
        if (known.empty() || !known.mapped().holdsFor(stamp)) {
            const auto bytes = files_->readFile(path, kind_.largest);
            Document document;
            document.take(bytes ? kind_.parse(*bytes) : std::nullopt, bytes ? stamp : std::nullopt, now);
            return seen.insert_or_assign(path, std::move(document)).first->second.value();
        }
        return seen.insert(std::move(known)).position->second.value();
    }

    const FileSystem* files_;
    Kind kind_;
    std::map<std::string, Document> documents_; ///< by path
};

} // namespace mimkins
