#include <QApplication>
#include <QFont>
#include <gtest/gtest.h>

// Real widgets without a screen: the tests run the same everywhere.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QApplication::setFont(QFont("DejaVu Sans", 9));
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
