#include <QApplication>

#include <gtest/gtest.h>

/// One application object for all tests of the program.
int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, words);
    testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}
