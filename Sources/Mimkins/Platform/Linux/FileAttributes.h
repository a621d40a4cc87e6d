#pragma once

namespace mimkins {

/// Gives one open file the owner, extended attributes and access list of another. What an ordinary user may
/// not set, or the file system of the second file doesn't know, is left out. Throws nothing; the result is an
/// errno value, zero on success, and a failure means that something of the user's own would have been lost.
int copyAttributes(int from, int to);

} // namespace mimkins
