#include "Presentation/Table.h"

#include <gtest/gtest.h>

using namespace mimkins;

TEST(Table, MeasuresColumnsNotBytes) {
    EXPECT_EQ(displayWidth("héllo"), 5U);
    EXPECT_EQ(displayWidth("日本"), 4U);
    EXPECT_EQ(displayWidth("e\u0301"), 1U);
    EXPECT_EQ(elided("hello", 5), "hello");
    EXPECT_EQ(elided("hello", 4), "hel…");
    EXPECT_EQ(elided("日本語", 4), "日…");
    EXPECT_EQ(elided("x", 0), "");
}

TEST(Table, MakesOutsideTextSafeToPrint) {
    EXPECT_EQ(printable("a\033[31mb\nc\x07"), "a [31mb c ");
    EXPECT_EQ(printable("fine é"), "fine é");
}

TEST(Table, FitsTheTerminal) {
    const std::vector<std::vector<TableCell>> rows{
        {{"Mochi", ""}, {"a rather long project name", ""}, {"Running: something that goes on and on", ""}},
    };
    for (std::size_t width = 20; width < 90; ++width) {
        const auto text = renderTable({"PET", "PROJECT", "ACTIVITY"}, rows, {width, false});
        std::size_t begin = 0;
        while (begin < text.size()) {
            const auto end = text.find('\n', begin);
            EXPECT_LE(displayWidth(text.substr(begin, end - begin)), width) << width;
            begin = end + 1;
        }
    }
    EXPECT_EQ(renderTable({"A", "B"}, {{{"x", ""}, {"long words", ""}}}, {}), "A  B\nx  long words\n");
}

TEST(Table, ColorsOnlyWhenAsked) {
    const std::vector<std::vector<TableCell>> rows{{{"x", "33"}}};
    EXPECT_EQ(renderTable({"A"}, rows, {0, false}), "A\nx\n");
    EXPECT_EQ(renderTable({"A"}, rows, {0, true}), "\033[2mA\033[0m\n\033[33mx\033[0m\n");
}
