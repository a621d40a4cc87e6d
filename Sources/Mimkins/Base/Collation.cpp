#include "Base/Collation.h"

#include <unicode/coll.h>
#include <unicode/locid.h>

#include <memory>
#include <string_view>

namespace mimkins::text {

struct Collation::Storage {
    std::unique_ptr<icu::Collator> collator;
};

namespace {

/// The user's locale, but not the one that stands for none at all: it orders by bytes.
icu::Locale locale() {
    const icu::Locale users;
    return std::string_view(users.getVariant()) == "POSIX" ? icu::Locale::getRoot() : users;
}

} // namespace

Collation::Collation() : storage_(std::make_unique<Storage>()) {
    UErrorCode status = U_ZERO_ERROR;
    storage_->collator.reset(icu::Collator::createInstance(locale(), status));
    if (U_SUCCESS(status)) {
        storage_->collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    }
    if (U_FAILURE(status)) {
        storage_->collator.reset();
    }
}

Collation::~Collation() = default;

bool Collation::before(const std::string& left, const std::string& right) const {
    if (storage_->collator) {
        UErrorCode status = U_ZERO_ERROR;
        const auto order = storage_->collator->compareUTF8(left, right, status);
        if (U_SUCCESS(status) && order != UCOL_EQUAL) {
            return order == UCOL_LESS;
        }
    }
    return left < right;
}

} // namespace mimkins::text
