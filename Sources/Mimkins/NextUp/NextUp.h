#pragma once

#include "Session/Session.h"

#include <vector>

/// Who needs the user next.
namespace mimkins::NextUp {

/// The sessions that wait on the user: first those that can't go on without an answer, then those with lines
/// to commit, then those with a new reply; within each the one that has waited longest first.
std::vector<Session> queue(const std::vector<Session>& sessions);

} // namespace mimkins::NextUp
