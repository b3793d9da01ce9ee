#include "LocatedDesktop.h"

#include <QDir>

using namespace norvane;
using namespace norvane::test;

namespace {

class FolderLocations : public testing::TestWithParam<const char *>, protected LocatedDesktop
{
protected:
    void SetUp() override
    {
        startDesktop();
        for (const QString &folder : {m_odd, QStringLiteral("/letters"), QStringLiteral("/a")})
            ASSERT_TRUE(QDir().mkpath(m_desktop.home() + folder));
    }

    QProcess *startProgram(const QString &program, const QString &folder)
    {
        QStringList arguments{folder};
        if (program == u"caja")
            arguments.prepend(QStringLiteral("--no-desktop"));
        QProcessEnvironment extra;
        // What the session of a desktop with accessibility sets for programs of the older toolkit.
        extra.insert(QStringLiteral("GTK_MODULES"), QStringLiteral("gail:atk-bridge"));
        return m_desktop.run(program, arguments, extra);
    }

    /// Goes to the folder above; a program that has just started loses keys.
    bool goesUp(WindowHandle window)
    {
        const QString caption = m_windows->caption(window);
        for (int attempt = 0; attempt < 8 && activate(window); ++attempt) {
            m_desktop.x().press(QStringLiteral("alt+Up"));
            if (waitFor([&] { return m_windows->caption(window) != caption; }, 3000))
                return true;
        }
        return false;
    }

    const QString m_odd = QStringLiteral("/letters/100%20 für Öl #1");
};

} // namespace

TEST_P(FolderLocations, FollowTheFolder)
{
    const QString home = m_desktop.home();
    ASSERT_NE(startProgram(QString::fromLatin1(GetParam()), home + m_odd), nullptr);
    const WindowHandle window = windowTitled(QStringLiteral("100%20 für"));
    ASSERT_NE(window, kNoWindow);
    EXPECT_TRUE(becomes(window, home + m_odd)) << told(window);

    ASSERT_TRUE(goesUp(window));
    EXPECT_TRUE(waitFor([&] {
        return goesStraightTo(window, QStringLiteral("letters"), home + QStringLiteral("/letters"));
    })) << told(window);

    EXPECT_TRUE(goesUp(window));
    EXPECT_TRUE(becomes(window, home)) << told(window) << m_windows->caption(window).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Programs, FolderLocations,
                         testing::Values("thunar", "pcmanfm", "caja", "nautilus", "dolphin"),
                         [](const auto &program) { return std::string(program.param); });
