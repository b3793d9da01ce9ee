#include "platform/RuntimeError.h"
#include "shell/windows/Application.h"

#include <QStringList>
#include <QTimer>
#include <gmock/gmock.h>

using namespace norvane;

namespace {

Application &application()
{
    return *static_cast<Application *>(QCoreApplication::instance());
}

TEST(ApplicationErrors, AreToldOneByOneAndTheProgramGoesOn)
{
    QStringList told;
    const auto raise = [](int number) { throw RuntimeError(number, QStringLiteral("Something is wrong.")); };
    application().setErrorReport([&](const RuntimeError &error) {
        told.append(QString::number(error.number()) + u' ' + error.description());
        // As in a box that waits for its button.
        QTimer::singleShot(0, [&] { raise(76); });
        QCoreApplication::processEvents();
    });
    QTimer::singleShot(0, [&] { raise(75); });
    QCoreApplication::processEvents();
    EXPECT_EQ(told, QStringList{QStringLiteral("75 Something is wrong.")}) << "no box upon the box";

    QTimer::singleShot(0, [&] { raise(77); });
    QCoreApplication::processEvents();
    EXPECT_EQ(told.size(), 2);
    application().setErrorReport({});
}

} // namespace

int main(int argc, char **argv)
{
    const Application application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
