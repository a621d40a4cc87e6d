#include "Drawing/Contrast.h"
#include "Drawing/Qt/Conversions.h"
#include "PanelView/CardText.h"
#include "PanelView/CardView.h"
#include "PanelView/SessionList.h"
#include "PanelView/SummaryLabel.h"
#include "Presentation/Accent.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPixmap>

#include <gtest/gtest.h>

#include <cmath>
#include <map>

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

CardLook look(double scale, FontDesign design = FontDesign::standard) {
    return {&PetTheme::nightSky(), Typography(design, scale), 62, {}};
}

/// A row with all the badges that there are.
CardRow fullRow(const Case& words);

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

CardRow fullRow(const Case& words) {
    CardRow full = row(words);
    full.agent = words.project + " AGENT";
    full.effort = effortBadge(1);
    full.pill = subtasksPill(128, false);
    full.model = modelBadge({"claude-a-model-with-a-long-name", "max"}, ModelBadgeForm::named);
    full.highlighted = true;
    return full;
}

/// What a run looks like in its place, with or without being cut to it.
QImage drawn(const CardText::Run& run, int more) {
    constexpr int room = 40;
    QImage image(
        static_cast<int>(run.rect.width()) + 2 * room, static_cast<int>(run.rect.height()) + 2 * room,
        QImage::Format_ARGB32_Premultiplied
    );
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(run.font);
    painter.drawText(
        QRectF(QPointF(room, room), run.rect.size()),
        static_cast<int>(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter) | Qt::TextSingleLine | more,
        run.text
    );
    return image;
}

void expectWhole(const CardText& set) {
    for (const auto& run : set.runs) {
        EXPECT_EQ(drawn(run, 0), drawn(run, Qt::TextDontClip)) << run.text.toStdString();
    }
}

class CardTextAtScale : public testing::TestWithParam<double> {};

struct Placed {
    std::string what;
    QRectF rect;
};

void expectApart(const CardText& set, double width) {
    std::vector<Placed> all;
    for (const auto& run : set.runs) {
        all.push_back({run.text.toStdString(), run.rect});
        EXPECT_LE(QFontMetricsF(run.font).horizontalAdvance(run.text), run.rect.width() + 1)
            << run.text.toStdString();
    }
    for (const auto& chip : set.chips) {
        all.push_back({"badge " + std::to_string(static_cast<int>(chip.badge)), chip.rect});
    }
    for (std::size_t one = 0; one < all.size(); ++one) {
        EXPECT_GE(all[one].rect.left(), 0) << all[one].what;
        EXPECT_LE(all[one].rect.right(), width + 0.01) << all[one].what;
        EXPECT_LE(all[one].rect.bottom(), set.height + 0.01) << all[one].what;
        for (std::size_t other = one + 1; other < all.size(); ++other) {
            const auto shared = all[one].rect.intersected(all[other].rect);
            EXPECT_FALSE(shared.width() > 0.01 && shared.height() > 0.01)
                << all[one].what << " / " << all[other].what;
        }
    }
}

TEST_P(CardTextAtScale, NothingOverlapsOrLeavesTheColumn) {
    const CardLook shown = look(GetParam(), FontDesign::rounded);
    for (const double width : {60.0, 140.0, 200.0, 260.0}) {
        for (const auto& words : cases) {
            SCOPED_TRACE(testing::Message() << words.name << " in " << width);
            expectApart(setCardText(row(words), "88h 59m", width, shown), width);
            expectApart(setCardText(fullRow(words), "88h 59m", width, shown), width);
        }
    }
}

TEST_P(CardTextAtScale, WordsOfASubtaskStayApart) {
    const CardLook shown = look(GetParam(), FontDesign::rounded);
    for (const double width : {60.0, 140.0, 200.0}) {
        for (const auto& words : cases) {
            SCOPED_TRACE(testing::Message() << words.name << " in " << width);
            SubtaskRow task;
            task.description = words.title;
            task.stateWord = "Needs your OK";
            task.activity = words.activity;
            task.badges.plain = modelBadge({"claude-opus-4-5", "max"}, ModelBadgeForm::iconOnly);
            expectApart(setSubtaskText(task, "88h 59m", width, shown), width);
            task.badges = {
                std::nullopt, modelBadge({words.project + "-model", "max"}, ModelBadgeForm::highlighted)};
            expectApart(setSubtaskText(task, "88h 59m", width, shown), width);
        }
    }
}

TEST_P(CardTextAtScale, NoWordIsCutByItsPlace) {
    for (const auto design :
         {FontDesign::standard, FontDesign::rounded, FontDesign::serif, FontDesign::monospaced}) {
        const CardLook shown = look(GetParam(), design);
        for (const double width : {140.0, 200.0, 260.0}) {
            for (const auto& words : cases) {
                SCOPED_TRACE(testing::Message() << words.name << " in " << width);
                expectWhole(setCardText(fullRow(words), "88h 59m", width, shown));
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
    const CardLook shown = look(1);
    const auto titles = textsOf(setCardText(row(cases[2]), "5s", 200, shown), CardText::Role::title);
    ASSERT_EQ(titles.size(), 2);
    EXPECT_FALSE(titles[0].endsWith("…"));
    EXPECT_TRUE(titles[1].endsWith("…"));
    EXPECT_TRUE(titles[0].startsWith("Move the basket"));
}

TEST(CardText, LongProjectIsShortenedInTheMiddle) {
    const CardLook shown = look(1);
    const auto projects = textsOf(setCardText(row(cases[2]), "5s", 140, shown), CardText::Role::project);
    ASSERT_EQ(projects.size(), 1);
    EXPECT_TRUE(projects[0].contains("…"));
    EXPECT_TRUE(projects[0].startsWith("a-p"));
    EXPECT_TRUE(projects[0].endsWith("on"));
}

TEST(CardText, StateStandsOnOneLineWhereItFits) {
    const CardLook shown = look(1);
    const auto set = setCardText(row(cases[0]), "5s", 400, shown);
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
    const CardLook shown = look(1);
    for (double width = 60; width < 300; width += 1) {
        const auto one = setCardText(row(cases[0]), "9s", width, shown);
        const auto two = setCardText(row(cases[0]), "10s", width, shown);
        EXPECT_EQ(one.height, two.height) << width;
    }
}

TEST(CardText, BadgesKeepTheirSizeAtEveryWidthOfTheDrawer) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        const CardLook shown = look(scale, FontDesign::rounded);
        for (const double drawer : {280.0, 320.0, 380.0}) {
            const double width = drawer - 24 - 10 - 62 - 10 - 10;
            const auto set = setCardText(fullRow(cases[0]), "88h 59m", width, shown);
            for (const auto badge : {CardText::Badge::effort, CardText::Badge::pill}) {
                const auto* placed = set.find(badge);
                ASSERT_NE(placed, nullptr);
                EXPECT_GE(placed->rect.width(), placed->chip.size().width()) << drawer;
                EXPECT_FALSE(placed->chip.pieces.back().words.contains("…")) << drawer << " at " << scale;
            }
        }
    }
}

double widthOf(const CardText& set, CardText::Badge badge) {
    const auto* placed = set.find(badge);
    return placed != nullptr ? placed->rect.width() : 0;
}

TEST(CardText, PillIsCompactWhereTheHeaderDoesNotFit) {
    auto busy = row(cases[0]);
    busy.project = "SHOP";
    busy.pill = subtasksPill(3, false);
    const double wide = widthOf(setCardText(busy, "5s", 260, look(1)), CardText::Badge::pill);
    busy.project = "A-PROJECT-WITH-A-NAME-THAT-GOES-ON-AND-ON";
    const auto narrow = setCardText(busy, "5s", 260, look(1));
    EXPECT_LT(widthOf(narrow, CardText::Badge::pill), wide - 20);
    EXPECT_TRUE(textsOf(narrow, CardText::Role::project)[0].contains("…"));
    EXPECT_EQ(narrow.find(CardText::Badge::pill)->rect.top(), narrow.runs[0].rect.top());
}

TEST(CardText, MarkInTheCornerLeavesRoomForItself) {
    auto pointed = fullRow(cases[2]);
    pointed.highlighted = true;
    const double width = 204;
    const auto set = setCardText(pointed, "5s", width, look(1));
    const double mark = nextUpChip(look(1)).size().width() - 10; // beyond the column lies the padding
    const double header = set.runs[0].rect.bottom();
    for (const auto& chip : set.chips) {
        if (chip.rect.top() < header) {
            EXPECT_LE(chip.rect.right(), width - mark);
        }
    }
    EXPECT_LE(set.runs[0].rect.right(), width - mark);
}

TEST(CardText, MarkCanBeReadInEveryTheme) {
    for (const auto& theme : PetTheme::all()) {
        for (const auto scheme : {ColorScheme::light, ColorScheme::dark}) {
            const PetTheme plain = theme.resolved(scheme);
            const Chip mark = nextUpChip({&plain, Typography(FontDesign::rounded, 1), 62, {}});
            EXPECT_GE(contrast(mark.pieces.front().ink, accent(plain)), 4.5) << theme.id;
        }
    }
}

TEST(CardText, TimeStandsBesideTheStateRatherThanAlone) {
    const CardLook shown = look(1);
    for (double width = 100; width < 300; width += 1) {
        const auto set = setCardText(row(cases[0]), "5m", width, shown);
        std::map<CardText::Role, QRectF> places;
        for (const auto& run : set.runs) {
            places[run.role] = run.rect;
        }
        const QRectF mood = places[CardText::Role::mood];
        const bool fitsBeside = QFontMetricsF(shown.typography.font(11, QFont::DemiBold))
                                    .horizontalAdvance(qt::text(label(Mood::background))) < width - 50;
        EXPECT_TRUE(!fitsBeside || places[CardText::Role::elapsed].top() == mood.top()) << width;
    }
}

/// The words of each line of the state, with what stands on it.
QStringList stateLines(const CardText& set) {
    std::map<double, QStringList> lines;
    for (const auto& run : set.runs) {
        using Role = CardText::Role;
        if (run.role == Role::name || run.role == Role::mood || run.role == Role::separator ||
            run.role == Role::elapsed) {
            lines[run.rect.top()].append(run.text);
        }
    }
    QStringList all;
    for (const auto& [top, words] : lines) {
        all.append(words.join(' '));
    }
    return all;
}

std::string stateOf(const CardRow& row, const QString& elapsed, double width, const CardLook& look) {
    return stateLines(setCardText(row, elapsed, width, look)).join(" / ").toStdString();
}

TEST(CardText, StateOfALargeFontBreaksBetweenItsWordsSoThatTheTimeHasCompany) {
    const CardLook shown = look(2);
    const QFont bold = shown.typography.font(11, QFont::DemiBold);
    auto large = row(cases[0]);
    large.moodLabel = label(Mood::needsPermission);
    // Enough for the state, and too little for the time beside it.
    const double width = QFontMetricsF(bold).horizontalAdvance(qt::text(large.moodLabel)) + 20;
    large.name = std::nullopt;
    EXPECT_EQ(stateOf(large, "5m", width, shown), "Needs your / OK · 5m");
    large.name = "Bo";
    EXPECT_EQ(stateOf(large, "5m", width, shown), "Bo · Needs your / OK · 5m");
    large.name = "Marmalade";
    EXPECT_EQ(stateOf(large, "5m", width, shown), "Marmalade / Needs your / OK · 5m");
}

TEST(CardText, StateBeginsBesideTheNameOnlyIfThatSavesALine) {
    const CardLook shown = look(2);
    const QFont bold = shown.typography.font(11, QFont::DemiBold);
    auto large = row(cases[0]);
    large.name = "Mochi";
    large.moodLabel = label(Mood::needsInput);
    const double width = QFontMetricsF(bold).horizontalAdvance("Needs your") + 25;
    EXPECT_EQ(stateOf(large, "5m", width, shown), "Mochi / Needs your / input · 5m");
}

TEST(CardText, NoWordOfAStateIsLostAndNoTimeStandsAloneThatFitsBesideAWord) {
    int together = 0;
    for (const double scale : {1.0, 1.5, 2.0}) {
        const CardLook shown = look(scale);
        const QFont bold = shown.typography.font(11, QFont::DemiBold);
        const QFont plain = shown.typography.font(11, QFont::Medium);
        for (const double drawer : {280.0, 320.0, 380.0}) {
            const double width = drawer - 24 - 10 - 62 - 10 - 10;
            for (const auto mood : allMoods) {
                auto each = row(cases[0]);
                each.moodLabel = label(mood);
                const QString lastWord = qt::text(each.moodLabel).section(' ', -1);
                const double wanted = QFontMetricsF(bold).horizontalAdvance(lastWord) +
                                      QFontMetricsF(plain).horizontalAdvance("·88m") + 8 + 3;
                for (const bool named : {true, false}) {
                    each.name = named ? std::optional<std::string>("Jellybean") : std::nullopt;
                    const auto set = setCardText(each, "59m", width, shown);
                    EXPECT_EQ(textsOf(set, CardText::Role::mood).join(' '), qt::text(each.moodLabel));
                    const bool beside = stateLines(set).back().contains("· 59m");
                    EXPECT_TRUE(beside || wanted > width) << each.moodLabel << " in " << drawer;
                    together += beside ? 1 : 0;
                }
            }
        }
    }
    EXPECT_GT(together, 3 * 3 * 2 * static_cast<int>(allMoods.size()) * 3 / 4);
}

TEST(SessionList, CardGrowsWithATimeThatNeedsALineOfItsOwn) {
    const CardLook shown = look(1);
    SessionList list(shown);
    list.setPaused(true);
    list.show();
    auto hour = row(cases[0]);
    hour.since = Date{0};
    bool grew = false;
    for (int width = 280; width < 420; width += 4) {
        list.resize(width, 600);
        list.setRows({hour}, Date{3'599});
        const auto& card = *list.cards().front();
        const int before = card.height();
        list.setNow(Date{3'600});
        const int room = 2 * CardView::shadowRoom;
        EXPECT_EQ(card.height() - room, std::lround(card.heightFor(card.width() - room))) << width;
        grew = grew || card.height() > before;
    }
    EXPECT_TRUE(grew);
}

TEST(CardText, LongWordGoesOnInTheSecondLine) {
    auto wordy = row(cases[0]);
    wordy.title = "Donaudampfschifffahrtsgesellschaftskapitaen";
    const auto titles = textsOf(setCardText(wordy, "5s", 200, look(1)), CardText::Role::title);
    ASSERT_EQ(titles.size(), 2);
    EXPECT_FALSE(titles[0].contains("…"));
    EXPECT_EQ(titles.join(""), "Donaudampfschifffahrtsgesellschaftskapitaen");
}

TEST(SummaryLabel, SaysWhatThereIsRoomFor) {
    SummaryLabel label;
    label.setSummary({SummaryKind::waiting, "5 waiting on you"}, PetTheme::nightSky(), look(1).typography);
    const auto drawnWidth = [&label](int width) {
        label.resize(width, label.sizeHint().height());
        const QImage picture = label.grab().toImage();
        int left = 0;
        while (left < width && picture.pixelColor(left, picture.height() / 2).alpha() == 0) {
            ++left;
        }
        return width - left;
    };
    const int whole = label.sizeHint().width();
    label.setAttribute(Qt::WA_TranslucentBackground);
    EXPECT_EQ(drawnWidth(whole), whole);
    EXPECT_EQ(drawnWidth(whole + 40), whole);
    const int two = drawnWidth(whole - 2); // "5 waiting"
    EXPECT_LT(two, whole - 20);
    EXPECT_EQ(drawnWidth(two), two);
    EXPECT_LT(drawnWidth(two - 2), two - 20); // "5"
    EXPECT_EQ(label.text(), "5 waiting on you");
}

TEST(CardView, DrawsEveryMoodDifferently) {
    std::vector<QImage> pictures;
    for (const auto mood :
         {Mood::working, Mood::needsPermission, Mood::question, Mood::yourTurn, Mood::snag, Mood::stuck}) {
        auto shown = row(cases[0]);
        shown.mood = mood;
        shown.moodLabel = label(mood);
        CardView card(shown, look(1), Date{0});
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
