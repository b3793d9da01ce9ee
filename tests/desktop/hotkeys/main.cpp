// The program's own: the common one would open a window system before the test has started one.
#include <QCoreApplication>
#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
