#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>

// Every test program gets an application object, offscreen unless the caller asks for a real display.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale::c());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
