#pragma once

#include "Subtask/SubtaskReader.h"

#include <fstream>
#include <iterator>
#include <string>

namespace mimkins {

/// The lines of a real client's transcript, over and over, so that every tail has its full length.
inline std::string recordedTranscript() {
    std::ifstream file(MIMKINS_SOURCE_DIR "/Tests/Data/transcripts/transcript-main.jsonl", std::ios::binary);
    const std::string once{std::istreambuf_iterator<char>(file), {}};
    std::string text;
    while (!once.empty() && text.size() < 2 * SubtaskReader::tailBytes) {
        text += once;
    }
    return text;
}

} // namespace mimkins
