#include "PanelView/CardText.h"
#include "PanelView/CardView.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPixmap>

#include <gtest/gtest.h>

namespace mimkins::test {

namespace {

struct Case {
    const char* name;
    std::string title;
    std::string project;
    std::string activity;
};

const std::vector<Case> cases{
    {"short", "Fix it", "shop", "Thinking"},
    {"long words", std::string(400, 'w'), std::string(200, 'p'), std::string(600, 'a')},
    {"long sentence", "Move the basket to the new checkout and then tell everybody about it in a letter",
     "a-project-with-a-name-that-goes-on", "Running: npm run migrate -- --dry-run --verbose --all --yes"},
    {"right to left", "إصلاح سلة التسوق ونقلها إلى صفحة الدفع الجديدة قبل نهاية الأسبوع", "متجر", "تشغيل"},
    {"mixed", "Fix the סל הקניות and the 買い物かご before 2026-11-21", "קניות", "Editing: שלום.txt"},
    {"emoji", "👩‍👩‍👧‍👦🎉 party for 🇩🇪🇫🇷 " + std::string(120, '!'), "🎉🎉",
     "👍🏽"},
    {"nothing", "", "", ""},
};

CardRow row(const Case& words) {
    CardRow row;
    row.id = words.name;
    row.mood = Mood::background;
    row.project = words.project;
    row.title = words.title;
    row.name = "Jellybean";
    row.moodLabel = label(row.mood);
    row.activity = words.activity;
    return row;
}

class CardTextAtScale : public testing::TestWithParam<double> {};

TEST_P(CardTextAtScale, NothingOverlapsOrLeavesTheColumn) {
    const Typography typography(FontDesign::rounded, GetParam());
    for (const double width : {60.0, 140.0, 200.0, 260.0}) {
        for (const auto& words : cases) {
            SCOPED_TRACE(testing::Message() << words.name << " in " << width);
            const auto set = setCardText(row(words), "88h 59m", width, typography);
            for (std::size_t one = 0; one < set.runs.size(); ++one) {
                const auto& run = set.runs[one];
                EXPECT_GE(run.rect.left(), 0);
                EXPECT_LE(run.rect.right(), width + 0.01);
                EXPECT_LE(run.rect.bottom(), set.height + 0.01);
                EXPECT_LE(QFontMetricsF(run.font).horizontalAdvance(run.text), run.rect.width() + 1)
                    << run.text.toStdString();
                for (std::size_t other = one + 1; other < set.runs.size(); ++other) {
                    const auto shared = run.rect.intersected(set.runs[other].rect);
                    EXPECT_FALSE(shared.width() > 0.01 && shared.height() > 0.01)
                        << run.text.toStdString() << " / " << set.runs[other].text.toStdString();
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, CardTextAtScale, testing::Values(1.0, 1.5, 2.0, 3.0));

QStringList textsOf(const CardText& set, CardText::Role role) {
    QStringList texts;
    for (const auto& run : set.runs) {
        if (run.role == role) {
            texts.append(run.text);
        }
    }
    return texts;
}

TEST(CardText, LongTitleTakesTwoLinesAndAnEllipsis) {
    const Typography typography(FontDesign::standard, 1);
    const auto titles = textsOf(setCardText(row(cases[2]), "5s", 200, typography), CardText::Role::title);
    ASSERT_EQ(titles.size(), 2);
    EXPECT_FALSE(titles[0].endsWith("…"));
    EXPECT_TRUE(titles[1].endsWith("…"));
    EXPECT_TRUE(titles[0].startsWith("Move the basket"));
}

TEST(CardText, LongProjectIsShortenedInTheMiddle) {
    const Typography typography(FontDesign::standard, 1);
    const auto projects = textsOf(setCardText(row(cases[2]), "5s", 140, typography), CardText::Role::project);
    ASSERT_EQ(projects.size(), 1);
    EXPECT_TRUE(projects[0].contains("…"));
    EXPECT_TRUE(projects[0].startsWith("a-p"));
    EXPECT_TRUE(projects[0].endsWith("on"));
}

TEST(CardText, StateStandsOnOneLineWhereItFits) {
    const Typography typography(FontDesign::standard, 1);
    const auto set = setCardText(row(cases[0]), "5s", 400, typography);
    std::vector<double> tops;
    for (const auto& run : set.runs) {
        if (run.role == CardText::Role::name || run.role == CardText::Role::mood ||
            run.role == CardText::Role::elapsed) {
            tops.push_back(run.rect.top());
        }
    }
    ASSERT_EQ(tops.size(), 3U);
    EXPECT_EQ(tops[0], tops[1]);
    EXPECT_EQ(tops[1], tops[2]);
}

TEST(CardText, AGrowingNumberOfSecondsDoesNotChangeTheHeight) {
    const Typography typography(FontDesign::standard, 1);
    for (double width = 60; width < 300; width += 1) {
        const auto one = setCardText(row(cases[0]), "9s", width, typography);
        const auto two = setCardText(row(cases[0]), "10s", width, typography);
        EXPECT_EQ(one.height, two.height) << width;
    }
}

TEST(CardView, DrawsEveryMoodDifferently) {
    const CardLook look{&PetTheme::nightSky(), Typography(FontDesign::standard, 1), 62, {}};
    std::vector<QImage> pictures;
    for (const auto mood :
         {Mood::working, Mood::needsPermission, Mood::question, Mood::yourTurn, Mood::snag, Mood::stuck}) {
        auto shown = row(cases[0]);
        shown.mood = mood;
        shown.moodLabel = label(mood);
        CardView card(shown, look, Date{0});
        card.resize(300, 100);
        pictures.push_back(card.grab().toImage());
    }
    for (std::size_t one = 0; one < pictures.size(); ++one) {
        for (std::size_t other = one + 1; other < pictures.size(); ++other) {
            EXPECT_NE(pictures[one], pictures[other]) << one << " and " << other;
        }
    }
}

} // namespace

} // namespace mimkins::test
