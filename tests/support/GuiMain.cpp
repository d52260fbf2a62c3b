#include <QApplication>
#include <gtest/gtest.h>

// One application object for the whole program: the toolkit does not take kindly to a second one.
int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
