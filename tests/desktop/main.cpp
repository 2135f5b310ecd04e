#include <QApplication>
#include <gtest/gtest.h>

// Off-screen unless the caller names a platform, so that the tests run on a machine without a display.
int main(int count, char** words)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&count, words);
    const QApplication application(count, words);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
