#include "faults/NoteFaults.h"

using namespace norvane::test;

namespace {

struct Title
{
    const char *name;
    QByteArray bytes; ///< of the window's property
    QString inTheRow; ///< by the rules of captions
};

QVector<Title> hostileTitles()
{
    const QString face = QString::fromUtf8("\xf0\x9f\x98\x80"); // two units
    const QString faces = QStringLiteral("%1 note %1").arg(face);
    const QString rightToLeft = QString::fromUtf8("שלום עולם: مرحبا");
    return {
        {"quotes", "He said \"don't\" and 'do'", QStringLiteral("He said 'don't' and 'do'")},
        {"bars", "a|b||c", QStringLiteral("a b  c")},
        {"condition", "\" or ID>0 or WindowName=\"", QStringLiteral("' or ID>0 or WindowName='")},
        {"long", QByteArray(4000, 'x'), QString(254, u'x')},
        {"longPairs", 'x' + face.repeated(2000).toUtf8(), u'x' + face.repeated(126)},
        {"nul", QByteArray("before\0behind", 13), QStringLiteral("before")},
        {"rightToLeft", rightToLeft.toUtf8(), rightToLeft},
        {"emoji", faces.toUtf8(), faces},
        {"notUtf8", "bad \xff\xfe bytes", QStringLiteral("bad \ufffd\ufffd bytes")},
    };
}

class HostileTitles : public NoteFaults
{
protected:
    /// The texts as the shell of the database quotes them, so that nothing in them is lost.
    QString row(int id, const char *field) const
    {
        const QString hex = norvane.query(
            QStringLiteral("select hex(%1) from Memos where ID=%2").arg(QLatin1String(field)).arg(id));
        return QString::fromUtf8(QByteArray::fromHex(hex.toLatin1()));
    }
};

TEST_F(HostileTitles, GiveNotesThatComeAndGo)
{
    ASSERT_NO_FATAL_FAILURE(startPlainDesktop());
    ASSERT_TRUE(arm(norvane));
    int id = 0;
    for (const Title &title : hostileTitles()) {
        SCOPED_TRACE(title.name);
        ++id;
        OtherProgram program(desktop, QString::fromLatin1(title.name));
        ASSERT_TRUE(program.start());
        xcb_window_t window = program.open(title.bytes);
        ASSERT_NE(window, 0u);
        const xcb_window_t note = norvane.attach(window);
        ASSERT_NE(note, 0u);
        EXPECT_EQ(row(id, "WindowName").toStdString(), title.inTheRow.toStdString());
        EXPECT_EQ(row(id, "FriendlyName").toStdString(), title.inTheRow.toStdString());
        EXPECT_EQ(row(id, "LocationName").toStdString(), title.inTheRow.toStdString());
        EXPECT_EQ(row(id, "URL").toStdString(), program.file().toStdString());

        program.close(window);
        EXPECT_TRUE(waitFor([&] { return !desktop.x().exists(note); }));
        window = program.open(title.bytes);
        EXPECT_NE(noteThatComesTo(window), 0u);
        program.close(window);
        EXPECT_EQ(norvane.query(QStringLiteral("select count(*) from Memos")).toInt(), id);
    }
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
}

} // namespace
