// An application without widgets and without a display.

#include <QCoreApplication>
#include <cstdlib>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    unsetenv("DISPLAY");
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
