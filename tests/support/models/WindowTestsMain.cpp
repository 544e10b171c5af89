// The main function of tests that draw, ask for a screen or use the clipboard.
#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int count, char** words) {
    ::testing::InitGoogleTest(&count, words);
    const QGuiApplication application(count, words);
    return RUN_ALL_TESTS();
}
