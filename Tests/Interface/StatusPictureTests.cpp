#include "App/StatusPicture.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <gtest/gtest.h>

#include <string>

namespace mimkins::test {

namespace {

QImage drawn(const QIcon& icon) {
    return icon.pixmap(22, 22).toImage();
}

TEST(StatusPicture, ShowsItsTitle) {
    EXPECT_EQ(drawn(statusPicture(" 2")), drawn(statusPicture(" 2")));
    EXPECT_NE(drawn(statusPicture(" 2")), drawn(statusPicture(" 3")));
    EXPECT_NE(drawn(statusPicture(" 2")), drawn(statusPicture("")));
}

TEST(StatusPicture, TraysGetTheSizesTheyAskFor) {
    const QIcon icon = statusPicture(" 2");
    ASSERT_FALSE(icon.isNull());
    EXPECT_GE(icon.availableSizes().size(), 3);
    for (const QSize size : icon.availableSizes()) {
        EXPECT_EQ(icon.pixmap(size).size(), size);
    }
    EXPECT_EQ(icon.pixmap(23, 40).size(), QSize(23, 23));
    EXPECT_EQ(icon.pixmap(22, 22).toImage(), QIcon(icon).pixmap(22, 22).toImage());
}

TEST(StatusPicture, IsPaintedInTheMiddleOfItsPlace) {
    QImage place(30, 22, QImage::Format_ARGB32_Premultiplied);
    place.fill(Qt::transparent);
    QPainter painter(&place);
    statusPicture(" 2").paint(&painter, place.rect());
    painter.end();
    const QImage wanted = drawn(statusPicture(" 2")).convertToFormat(place.format());
    EXPECT_EQ(place.copy(4, 0, 22, 22), wanted);
}

TEST(StatusPicture, TitleThatComesBackIsNotDrawnAgain) {
    StatusPictures pictures;
    const auto two = pictures.of(" 2").cacheKey();
    const auto three = pictures.of(" 3").cacheKey();
    EXPECT_NE(two, three);
    EXPECT_EQ(pictures.of(" 2").cacheKey(), two);
    EXPECT_EQ(pictures.of(" 3").cacheKey(), three);
    EXPECT_EQ(drawn(pictures.of(" 3")), drawn(statusPicture(" 3")));
}

TEST(StatusPicture, NoMoreThanAFewAreKept) {
    StatusPictures pictures;
    const auto first = pictures.of(" 0").cacheKey();
    for (std::size_t count = 1; count < StatusPictures::most; ++count) {
        pictures.of(" " + std::to_string(count));
    }
    EXPECT_EQ(pictures.of(" 0").cacheKey(), first);
    pictures.of(" one more");
    EXPECT_NE(pictures.of(" 0").cacheKey(), first);
    EXPECT_EQ(drawn(pictures.of(" 1")), drawn(statusPicture(" 1")));
}

} // namespace

} // namespace mimkins::test
