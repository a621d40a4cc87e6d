#include "Base/Link.h"

#include <gtest/gtest.h>

namespace mimkins::test {

namespace {

TEST(FileLink, OrdinaryPathsStayReadable) {
    EXPECT_EQ(fileLink("/opt/mimkins-1.0/bin/mimkins_x~"), "file:///opt/mimkins-1.0/bin/mimkins_x~");
}

TEST(FileLink, EverythingElseIsEscaped) {
    EXPECT_EQ(fileLink("/My Programs/100%/a#b?c"), "file:///My%20Programs/100%25/a%23b%3Fc");
    EXPECT_EQ(fileLink("/é"), "file:///%C3%A9");
    EXPECT_EQ(fileLink(std::string("/a\n\"") + '\xff'), "file:///a%0A%22%FF");
}

TEST(FileLink, IsALinkWhateverThePathHolds) {
    for (int byte = 1; byte < 256; ++byte) {
        EXPECT_EQ(linkScheme(fileLink(std::string("/") + static_cast<char>(byte))), "file") << byte;
    }
}

} // namespace

} // namespace mimkins::test
