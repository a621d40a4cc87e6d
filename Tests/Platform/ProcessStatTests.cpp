#include "Platform/Linux/ProcessStat.h"

#include <gtest/gtest.h>

#include <string>

using namespace mimkins;

namespace {

std::string line(const std::string& name, const std::string& start = "134594") {
    return "8474 (" + name + ") S 8350 8350 5033 0 -1 4194304 98 0 0 0 0 0 0 0 20 0 1 0 " + start +
           " 3133440 376 18446744073709551615\n";
}

} // namespace

TEST(ProcessStat, ReadsTheFieldsAfterAnyName) {
    const ProcessStat expected{8474, 'S', 8350, 134'594};
    for (const std::string name :
         {"cat", "", "a b", "a) S 1 2 3", "((", "))", ") R 1 1 1 (", "line\nend", "\xff\xfe"}) {
        EXPECT_EQ(parseProcessStat(line(name)), expected) << name;
    }
}

TEST(ProcessStat, TellsProcessesThatHaveEnded) {
    EXPECT_TRUE((ProcessStat{1, 'Z', 0, 0}).hasEnded());
    EXPECT_TRUE((ProcessStat{1, 'X', 0, 0}).hasEnded());
    EXPECT_FALSE((ProcessStat{1, 'T', 0, 0}).hasEnded());
}

TEST(ProcessStat, BrokenLinesGiveNothing) {
    for (const std::string& broken :
         {std::string(), std::string("8474"), std::string("8474 (cat"), std::string("8474 (cat) "),
          std::string("8474 (cat) S 8350"), std::string(") ("), std::string("x (cat) S 1"),
          line("cat", "soon"), line("cat", "-1"), line("cat", "99999999999999999999999"),
          line("cat").substr(0, 60)}) {
        EXPECT_EQ(parseProcessStat(broken), std::nullopt) << broken;
    }
}
