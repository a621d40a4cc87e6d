#include "Support.h"

#include "Base/Link.h"
#include "Base/Text.h"
#include "HookInstaller/SettingsText.h"
#include "Presentation/CardRow.h"
#include "Presentation/SessionsTable.h"
#include "Presentation/WhyWords.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace mimkins::fuzz {

namespace {

constexpr std::size_t terminalWidth = 80;

/// No control character but the line end, and no line wider than the terminal.
void requirePrintable(std::string_view words) {
    for (const auto line : text::splitDroppingEmpty(words, '\n')) {
        require(displayWidth(line) <= terminalWidth, "a line for the terminal fits it");
        const bool plain = std::none_of(line.begin(), line.end(), [](char byte) {
            return (byte >= 0 && byte < ' ') || byte == '\x7f';
        });
        require(plain, "a line for the terminal holds no control character");
    }
    require(text::isValidUtf8(words), "words for the terminal are valid UTF-8");
}

void requireHarmlessLink(const Session& session) {
    const auto link = session.jumpURL();
    if (!link || session.localId) {
        return;
    }
    const auto scheme = linkScheme(*link);
    require(scheme == "http" || scheme == "https" || scheme == "file", "only harmless links are opened");
}

void requireSoundCard(const Session& session) {
    const CardRow row = cardRow(session, {});
    require(row.canOpen == session.jumpURL().has_value(), "a card says whether its session can be opened");
    require(!row.moodLabel.empty() && !row.accessibleName.empty(), "a card has words for its mood");
    require(!session.petName(0).empty(), "every pet has a name");
}

} // namespace

void require(bool holds, const char* property) {
    if (!holds) {
        std::fprintf(stderr, "This doesn't hold: %s\n", property);
        std::abort();
    }
}

std::vector<std::string_view> pieces(std::string_view input) {
    constexpr char recordSeparator = '\x1e';
    std::vector<std::string_view> result;
    for (std::size_t begin = 0; begin <= input.size();) {
        const std::size_t end = std::min(input.find(recordSeparator, begin), input.size());
        result.push_back(input.substr(begin, end - begin));
        begin = end + 1;
    }
    constexpr std::size_t most = 9;
    result.resize(std::min(result.size(), most));
    return result;
}

test::MemoryFileSystem asFiles(const std::vector<std::string_view>& pieces, const std::string& folder) {
    test::MemoryFileSystem files;
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        files.write(folder + "/" + std::to_string(index) + ".json", pieces[index]);
    }
    return files;
}

void DocumentWriter::add(const char* key, const std::string& text) {
    root_[key].content = text;
}

void DocumentWriter::add(const char* key, const std::optional<std::string>& text) {
    if (text) {
        add(key, *text);
    }
}

void DocumentWriter::add(const char* key, double number) {
    require(std::isfinite(number), "a number that was read is finite");
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    root_[key].content = SettingsNumber{std::string(digits.data(), end)};
}

void DocumentWriter::add(const char* key, bool value) {
    root_[key].content = value;
}

std::string DocumentWriter::text() const {
    return serialiseSettings(root_);
}

void requireSoundSession(const SessionInputs& inputs) {
    WhySubject subject;
    subject.inputs = inputs;
    subject.liveness = Liveness::clientRuns;
    subject.derivation = deriveSession(inputs);
    require(
        subject.derivation.session.has_value() == (subject.derivation.absence == Absence::listed),
        "a session is there exactly if it is listed"
    );
    subject.id = inputs.hook != nullptr ? inputs.hook->id : inputs.registry->sessionId;
    requirePrintable(whyText(WhyWords::of(subject), now, {terminalWidth, false}));
    if (!subject.derivation.session) {
        return;
    }
    const Session& session = *subject.derivation.session;
    require(session.id == subject.id, "a session keeps its id");
    requireHarmlessLink(session);
    requireSoundCard(session);
    requirePrintable(sessionsTable({session}, {now, 0}, {terminalWidth, false}));
    require(deriveSession(inputs).session == session, "the same inputs give the same session");
}

} // namespace mimkins::fuzz
