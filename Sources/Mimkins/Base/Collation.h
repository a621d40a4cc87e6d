#pragma once

#include <memory>
#include <string>

namespace mimkins::text {

/// Puts texts in an order; made once for a sort, since making one is slow.
class Collation {
public:
    /// The order in which a file manager lists names in the user's locale: case counts last, and digits count
    /// as the number that they form, so that "part 2" comes before "part 10".
    Collation();
    ~Collation();

    Collation(const Collation&) = delete;
    Collation& operator=(const Collation&) = delete;

    /// True if `left` comes before `right`. Texts that read alike come in the order of their bytes.
    bool before(const std::string& left, const std::string& right) const;

private:
    struct Storage;
    std::unique_ptr<Storage> storage_;
};

} // namespace mimkins::text
