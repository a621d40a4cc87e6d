#include "Base/Collation.h"

#include <gtest/gtest.h>

using namespace mimkins;

TEST(Collation, OrdersNamesAsAFileManagerDoes) {
    const text::Collation collation;
    EXPECT_TRUE(collation.before("part 2", "part 10"));
    EXPECT_FALSE(collation.before("part 10", "part 2"));
    EXPECT_TRUE(collation.before("alpha", "Beta"));
    EXPECT_TRUE(collation.before("Alpha", "beta"));
    EXPECT_TRUE(collation.before("zebra", "zebra 2"));
    EXPECT_FALSE(collation.before("same", "same"));
    EXPECT_NE(collation.before("a\xff", "a\xfe"), collation.before("a\xfe", "a\xff"));
}
