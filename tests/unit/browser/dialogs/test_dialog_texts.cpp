#include "browser/dialogs/byte_size.h"
#include "browser/dialogs/location_cleaning.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

struct Cleaning
{
    QString text;
    QString location;
};

class LocationCleaning : public testing::TestWithParam<Cleaning>
{
};

TEST_P(LocationCleaning, GivesWhatIsKept)
{
    EXPECT_EQ(cleanLocation(GetParam().text), GetParam().location);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LocationCleaning,
    testing::Values(Cleaning{u""_qs, u""_qs}, Cleaning{u"   "_qs, u""_qs},
                    Cleaning{u" /home/me/a b.txt "_qs, u"/home/me/a b.txt"_qs},
                    Cleaning{u"\t/odd"_qs, u"\t/odd"_qs}, // only blanks are trimmed
                    Cleaning{u"c:"_qs, u"c:\\"_qs}, Cleaning{u"c:\\"_qs, u"c:\\"_qs},
                    Cleaning{u"C:\\Docs\\"_qs, u"C:\\Docs"_qs}, Cleaning{u"/home/me/"_qs, u"/home/me"_qs},
                    Cleaning{u"/home/me//"_qs, u"/home/me/"_qs}, // one and no more
                    Cleaning{u"/"_qs, u"/"_qs}, Cleaning{u"/home/odd:"_qs, u"/home/odd:"_qs},
                    Cleaning{u"WWW.example.org"_qs, u"http://WWW.example.org"_qs},
                    Cleaning{u"wwwexample.org"_qs, u"wwwexample.org"_qs},
                    Cleaning{u"www.example.org/"_qs, u"http://www.example.org/"_qs},
                    Cleaning{u"https://example.org/a/"_qs, u"https://example.org/a/"_qs},
                    Cleaning{u"\"/home/me/a \"b\".txt\""_qs, u"/home/me/a b.txt"_qs},
                    // The quote stands behind the separator when that is looked for.
                    Cleaning{u"\"/home/me/\""_qs, u"/home/me/"_qs}, Cleaning{u"\""_qs, u""_qs}));

TEST(ByteSize, IsDividedRoundedAndMasked)
{
    const QLocale english(QLocale::C);
    const auto masked = [&](double bytes, int unit, int decimals) {
        return FormatByteSize(bytes, unit, true, true, decimals, english);
    };
    EXPECT_EQ(masked(2048, 0, 1), u"2. Kb"_qs);
    EXPECT_EQ(masked(1536, 0, 1), u"1.5 Kb"_qs);
    EXPECT_EQ(masked(1280, 0, 1), u"1.2 Kb"_qs) << "1.25: halves go to the even one";
    EXPECT_EQ(masked(512, 0, 1), u".5 Kb"_qs);
    EXPECT_EQ(masked(0, 0, 1), u". Kb"_qs);
    EXPECT_EQ(masked(1234567.0 * 1024, 0, 1), u"1,234,567. Kb"_qs);
    EXPECT_EQ(masked(123.0 * 1024 * 1024, 1, 2), u"123. Mb"_qs);
    EXPECT_EQ(masked(1024.0 * 1024 * 1024, 2, 0), u"1. Gb"_qs);
    EXPECT_EQ(masked(1024.0 * 1024 * 1024 * 1024 * 2.25, 3, 2), u"2.25 Tb"_qs);
    EXPECT_EQ(masked(1024, 4, 1), QString());
    EXPECT_EQ(FormatByteSize(1024.0 * 1234, 0, false, false, 1, english), u"1234"_qs);
    EXPECT_EQ(FormatByteSize(1024.0 * 1234, 0, true, true, 1, QLocale(QLocale::German)), u"1.234, Kb"_qs);
}

TEST(ByteSize, OfAFileChangesItsUnitAt1024)
{
    const QLocale english(QLocale::C);
    EXPECT_EQ(fileSizeText(-1, english), u"0 Byte"_qs);
    EXPECT_EQ(fileSizeText(0, english), u"0 Bytes"_qs);
    EXPECT_EQ(fileSizeText(1023, english), u"1023 Bytes"_qs);
    EXPECT_EQ(fileSizeText(1024, english), u"1. Kb"_qs);
}

} // namespace
