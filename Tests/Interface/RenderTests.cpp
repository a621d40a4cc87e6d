#include "App/GifFile.h"
#include "App/IconPicture.h"
#include "App/Palette.h"
#include "AppIcon/AppIconDrawing.h"

#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <QColor>
#include <QFile>
#include <QImage>
#include <QImageReader>

#include <gmock/gmock.h>

#include <cmath>
#include <set>

namespace mimkins::test {

namespace {

using testing::HasSubstr;

class Render : public testing::Test {
protected:
    ProgramResult render(std::vector<std::string> words) {
        std::vector<std::string> call{
            MIMKINS_BINARY_DIR "/Sources/Mimkins/mimkins", "--home", folder.path(), "render"};
        call.insert(call.end(), words.begin(), words.end());
        return runProgram({call, {{"HOME", folder.path()}}, "", folder.path()});
    }

    std::string file(const std::string& name) const { return folder.path() + "/" + name; }

    QImage picture(const std::string& name) const { return QImage(QString::fromStdString(file(name))); }

    TemporaryFolder folder;
};

int colorsOf(const QImage& image) {
    std::set<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            colors.insert(image.pixel(x, y));
        }
    }
    return static_cast<int>(colors.size());
}

TEST_F(Render, PetIntoAFile) {
    const auto result =
        render({"pet", "--action", "hammering", "--clock", "100", "--size", "80", "-o", file("a.png")});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(picture("a.png").size(), QSize(80, 80));
    EXPECT_GT(colorsOf(picture("a.png")), 20);
}

TEST_F(Render, UnknownActionListsThemAll) {
    const auto result = render({"pet", "--action", "flying", "-o", file("a.png")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("there is no action \"flying\""));
    EXPECT_THAT(result.errors, HasSubstr(" hammering"));
    EXPECT_THAT(result.errors, HasSubstr(" yourTurn"));
    EXPECT_TRUE(picture("a.png").isNull());
    for (const char* name : {"a.png", "a.gif"}) {
        EXPECT_EQ(render({"film", "--action", "flying", "-o", file(name)}).status, 1);
        EXPECT_TRUE(picture(name).isNull());
    }
}

TEST_F(Render, UnknownRoutineListsThemAll) {
    const auto result = render({"film", "--routine", "flying", "-o", file("a.gif")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("there is no routine \"flying\""));
    EXPECT_THAT(result.errors, HasSubstr(" cartwheel"));
}

TEST_F(Render, UnknownThemeShowsTheNight) {
    EXPECT_EQ(
        render({"film", "--theme", "no such", "--clock", "9", "--frames", "1", "-o", file("a.png")}).status, 0
    );
    EXPECT_EQ(
        render({"film", "--theme", "night", "--clock", "9", "--frames", "1", "-o", file("b.png")}).status, 0
    );
    EXPECT_EQ(
        render({"film", "--theme", "paper", "--clock", "9", "--frames", "1", "-o", file("c.png")}).status, 0
    );
    EXPECT_FALSE(picture("a.png").isNull());
    EXPECT_EQ(picture("a.png"), picture("b.png"));
    EXPECT_NE(picture("a.png"), picture("c.png"));
}

TEST_F(Render, FileThatCannotBeWritten) {
    for (const char* name : {"none/a.png", "none/a.gif"}) {
        const auto result = render({"film", "--frames", "1", "-o", file(name)});
        EXPECT_EQ(result.status, 1);
        EXPECT_THAT(result.errors, HasSubstr(std::string("can't write ") + file(name)));
    }
}

TEST_F(Render, SheetOfHeadsHasARowForEachTheme) {
    const auto result = render({"sheet", "heads", "--no-labels", "--size", "40", "-o", file("a.png")});
    EXPECT_EQ(result.status, 0) << result.errors;
    const QImage sheet = picture("a.png");
    EXPECT_EQ(sheet.size(), QSize(9 * 48, 10 * 48));
    // In the middle of every cell, between the eyes, there is a head and no sky.
    for (int row = 0; row < 10; ++row) {
        for (int column = 0; column < 9; ++column) {
            const QColor head = sheet.pixelColor(48 * column + 24, 48 * row + 28);
            const QColor sky = sheet.pixelColor(48 * column + 1, 48 * row + 28);
            EXPECT_NE(head, sky) << row << " " << column;
        }
    }
}

TEST_F(Render, UnknownSheetIsWrongUsage) {
    const auto result = render({"sheet", "faces", "-o", file("a.png")});
    EXPECT_GT(result.status, 100);
    EXPECT_THAT(result.errors, HasSubstr("heads"));
}

TEST_F(Render, FilmMovesAndGoesRoundForEver) {
    const auto result = render(
        {"film", "--action", "hammering", "--clock", "100", "--seconds", "1", "--size", "62", "-o",
         file("a.gif")}
    );
    EXPECT_EQ(result.status, 0) << result.errors;
    QImageReader reader(QString::fromStdString(file("a.gif")));
    ASSERT_TRUE(reader.canRead());
    EXPECT_EQ(reader.imageCount(), 20);
    EXPECT_EQ(reader.loopCount(), -1);
    QImage first = reader.read();
    EXPECT_EQ(first.size(), QSize(62, 62));
    EXPECT_EQ(reader.nextImageDelay(), 50);
    EXPECT_NE(reader.read(), first);
    // Colours close to those of the still picture.
    EXPECT_EQ(
        render({"film", "--action", "hammering", "--clock", "100", "--frames", "1", "--no-labels", "-o",
                file("b.png")})
            .status,
        0
    );
    EXPECT_GT(colorsOf(first), 60);
}

class RenderSessions : public Render {
protected:
    static constexpr const char* at = "1795246096000";

    void report(const std::string& id, const std::string& state) {
        writeFile(
            folder / ("Library/Application Support/Mimkins/sessions/" + id + ".json"),
            R"({"id":")" + id + R"(","state":")" + state + R"(","since":)" + at + R"(,"ts":)" + at +
                R"(,"event":"Stop","project":"shop","title":"Fix the basket"})"
        );
    }

    /// A picture of this kind at that moment, drawn as the words say.
    QImage drawn(const std::string& kind, const std::vector<std::string>& words) {
        std::vector<std::string> all{kind, "--at", at, "-o", file("a.png")};
        all.insert(all.end(), words.begin(), words.end());
        const auto result = render(all);
        EXPECT_EQ(result.status, 0) << result.errors;
        return picture("a.png");
    }
};

TEST_F(RenderSessions, CardsOfAllSessionsAtEachWidth) {
    report("a", "working");
    const QImage one = drawn("card", {});
    report("b", "done");
    EXPECT_EQ(one.width(), 320);
    EXPECT_GT(drawn("card", {}).height(), one.height() + 80);
    EXPECT_EQ(drawn("card", {"--width", "narrow"}).width(), 280);
    EXPECT_EQ(drawn("card", {"--width", "wide"}).width(), 380);
    EXPECT_EQ(drawn("card", {"--width", "wide", "--scale", "2"}).width(), 760);
    const int usual = drawn("card", {}).height();
    EXPECT_GT(drawn("card", {"--text-size", "2"}).height(), usual + 60);
    EXPECT_GT(render({"card", "--width", "huge", "-o", file("a.png")}).status, 100);
}

TEST_F(RenderSessions, CardsInEachState) {
    report("a", "working");
    std::vector<QImage> pictures;
    for (const char* state : {"plain", "hover", "pressed", "next"}) {
        pictures.push_back(drawn("card", {"--state", state}));
        EXPECT_EQ(pictures.front().size(), pictures.back().size()) << state;
    }
    pictures.push_back(drawn("card", {"--theme", "paper"}));
    for (std::size_t one = 0; one < pictures.size(); ++one) {
        for (std::size_t other = one + 1; other < pictures.size(); ++other) {
            EXPECT_NE(pictures[one], pictures[other]) << one << " and " << other;
        }
    }
}

TEST_F(RenderSessions, TabShowsWhoWaits) {
    std::vector<QImage> pictures{drawn("tab", {})};
    report("a", "done");
    pictures.push_back(drawn("tab", {}));
    report("b", "waiting");
    pictures.push_back(drawn("tab", {}));
    pictures.push_back(drawn("tab", {"--open"}));
    pictures.push_back(drawn("tab", {"--state", "hover"}));
    for (std::size_t one = 0; one < pictures.size(); ++one) {
        EXPECT_EQ(pictures[one].size(), QSize(28, 92));
        for (std::size_t other = one + 1; other < pictures.size(); ++other) {
            EXPECT_NE(pictures[one], pictures[other]) << one << " and " << other;
        }
    }
}

TEST_F(RenderSessions, ExpandedCardShowsItsSubtasks) {
    report("a", "working");
    const int shut = drawn("card", {}).height();
    EXPECT_GT(drawn("card", {"--expanded", "a"}).height(), shut + 20);
}

TEST_F(Render, IconInAnySize) {
    for (const int side : app_icon::sides) {
        const auto name = std::to_string(side) + ".png";
        const auto result = render({"icon", "--size", std::to_string(side), "-o", file(name)});
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_EQ(picture(name).size(), QSize(side, side));
    }
    EXPECT_GT(render({"icon", "--size", "4", "-o", file("a.png")}).status, 100);
}

TEST_F(Render, SettingsOfAHomeWhosePreferencesStayAsTheyAre) {
    const auto result = render({"settings", "--theme", "paper", "--width", "wide", "-o", file("a.png")});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(picture("a.png").width(), 380 + 28);
    EXPECT_GT(picture("a.png").height(), 900);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(file(".config"))));
    EXPECT_EQ(render({"settings", "--width", "narrow", "-o", file("b.png")}).status, 0);
    EXPECT_EQ(picture("b.png").width(), 280 + 28);
    EXPECT_GT(render({"settings", "--width", "huge", "-o", file("c.png")}).status, 100);
}

TEST_F(Render, HelpHasExamples) {
    for (const char* command : {"pet", "sheet", "film", "icon", "card", "tab"}) {
        const auto result = render({command, "--help"});
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.output, HasSubstr("Example")) << command;
        EXPECT_THAT(result.output, HasSubstr(std::string("mimkins render ") + command)) << command;
    }
}

TEST(IconImage, IsMirroredOnWholePixelsWhereItIsSmall) {
    for (const int side : {16, 22, 24}) {
        const QImage icon = iconImage(side);
        EXPECT_EQ(icon, icon.mirrored(true, false)) << side;
        EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0) << side;
        // An eye is dark through and through: no blurred column.
        int dark = 0;
        for (int x = 0; x < side; ++x) {
            const QColor color = icon.pixelColor(x, side * 9 / 16);
            dark +=
                color.lightness() < 40 && color.alpha() == 255 && x > side / 5 && x < side * 4 / 5 ? 1 : 0;
        }
        EXPECT_EQ(dark, 2 * static_cast<int>(std::lround(2 * side / 16.0))) << side;
    }
}

TEST(Palette, FewColoursAreKeptAsTheyAre) {
    QImage image(4, 1, QImage::Format_RGB32);
    const std::vector<QRgb> given{qRgb(250, 10, 10), qRgb(10, 250, 10), qRgb(10, 10, 250), qRgb(0, 0, 0)};
    for (int x = 0; x < 4; ++x) {
        image.setPixel(x, 0, given[static_cast<std::size_t>(x)]);
    }
    ColorCount count;
    count.add(image);
    EXPECT_THAT(count.palette(255), testing::UnorderedElementsAreArray(given));
    EXPECT_EQ(count.palette(2).size(), 2U);
    PaletteSearch search(count.palette(255));
    EXPECT_EQ(search.palette()[search.nearest(qRgb(240, 20, 5))], given[0]);
}

TEST(Palette, ManyColoursLieNearTheirEntries) {
    QImage image(256, 256, QImage::Format_RGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            image.setPixel(x, y, qRgb(x, y, 128));
        }
    }
    ColorCount count;
    count.add(image);
    PaletteSearch search(count.palette(255));
    EXPECT_EQ(search.palette().size(), 255U);
    double sum = 0;
    for (int y = 0; y < 256; y += 5) {
        for (int x = 0; x < 256; x += 5) {
            const QColor found(search.palette()[search.nearest(qRgb(x, y, 128))]);
            sum += std::hypot(found.red() - x, found.green() - y);
        }
    }
    EXPECT_LT(sum / (52 * 52), 9); // a grid of 16 by 16 would be about 6 away
}

TEST(Gif, KeepsColoursTimeAndWhatStandsStill) {
    const TemporaryFolder folder;
    const std::string file = folder.path() + "/a.gif";
    Film film;
    film.frames = 3;
    film.frameSeconds = 0.125; // no whole number of hundredths
    film.frame = [](int frame) {
        QImage image(16, 8, QImage::Format_RGB32);
        image.fill(qRgb(20, 40, 200));
        for (int y = 0; y < 8; ++y) {
            image.setPixel(frame * 5, y, qRgb(250, 220, 30));
        }
        return image;
    };
    ASSERT_TRUE(writeGif(film, file));
    QImageReader reader(QString::fromStdString(file));
    int total = 0;
    for (int frame = 0; frame < 3; ++frame) {
        const QImage shown = reader.read();
        total += reader.nextImageDelay();
        for (int x = 0; x < 16; ++x) {
            const QColor expected(x == frame * 5 ? qRgb(250, 220, 30) : qRgb(20, 40, 200));
            EXPECT_EQ(shown.pixelColor(x, 3), expected) << frame << " " << x;
        }
    }
    EXPECT_NEAR(total, 375, 5);
    EXPECT_FALSE(writeGif(film, folder.path() + "/none/a.gif"));
}

} // namespace

} // namespace mimkins::test
