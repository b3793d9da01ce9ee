#include "browser/grid/note_row_texts.h"

#include "browser/grid/note_columns.h"
#include "fakes/FakeShell.h"

#include <gtest/gtest.h>

using namespace norvane;

TEST(NoteRowTexts, datesAreTheLocalesShortOnes)
{
    NoteDateTexts german(QLocale(QLocale::German, QLocale::Germany));
    const QDateTime date(QDate(2024, 3, 5), QTime(17, 4, 9));
    for (int turn = 0; turn < 2; ++turn)
        EXPECT_EQ(german(date), u"05.03.24  17:04"_qs);
    EXPECT_EQ(german({}), QString());
    EXPECT_EQ(wholeNumberOf({QDate(1899, 12, 31), QTime(0, 0)}), 1);
    EXPECT_EQ(wholeNumberOf({QDate(1899, 12, 31), QTime(12, 0)}), 2) << "halves to even";
    EXPECT_EQ(wholeNumberOf({QDate(1900, 1, 1), QTime(12, 0)}), 2);
    EXPECT_EQ(wholeNumberOf({}), 0);
}

namespace {

/// Counts what it is asked for.
class CountingShell : public fakes::FakeShell
{
public:
    mutable int asked = 0;
    QString typeName(const QString &path) const override
    {
        ++asked;
        return FakeShell::typeName(path);
    }
    QString typeKey(const QString &path) const override { return path.section(u'.', -1); }
};

} // namespace

TEST(NoteRowTexts, typesAreAskedForOnce)
{
    CountingShell shell;
    shell.typeNames = {{u".HTM"_qs, u"HTML document"_qs}, {u"/"_qs, u"File Folder"_qs}, {u"/odd"_qs, {}}};
    NoteTypes types(shell);
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_EQ(types(u"/a.pdf"_qs).text, u"PDF File"_qs);
        EXPECT_EQ(types(u"/b.pdf"_qs).shellKey, u"/b.pdf"_qs);
        EXPECT_EQ(types(u"x HtTp://a.pdf"_qs).text, u"HTML document"_qs);
        EXPECT_EQ(types(u"/home"_qs).icon, kIconFolder);
        EXPECT_EQ(types(u"/odd"_qs).text, u"File Folder"_qs);
        EXPECT_EQ(types(u"/"_qs).text, u"Local Disk"_qs);
        EXPECT_EQ(types(u"/"_qs).shellKey, u"/"_qs);
        EXPECT_EQ(types({}).text, u"Norvane"_qs);
    }
    EXPECT_EQ(shell.asked, 5);
}
