#pragma once

#include <map>
#include <string>
#include <vector>

namespace mimkins::test {

struct ProgramResult {
    int status = -1; ///< exit code, or 128 plus the signal's number, as a shell says it
    std::string output;
    std::string errors;
};

struct ProgramCall {
    /// The program (looked up in PATH unless it has a slash) and its arguments.
    std::vector<std::string> words;
    /// The whole environment of the program; nothing of the test's own is passed on. PATH is added when
    /// missing.
    std::map<std::string, std::string> environment;
    std::string input;
    std::string folder;
};

/// Runs a program to its end, feeding standard input and gathering both outputs.
ProgramResult runProgram(const ProgramCall& call);

} // namespace mimkins::test
