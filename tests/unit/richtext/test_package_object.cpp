#include "richtext/rtf/package_object.h"

#include <gtest/gtest.h>

using namespace norvane::rtf;

namespace {

PackagedFile sampleFile()
{
    return {u"Überblick – 概要"_qs, u"bericht.pdf"_qs, u"C:\\Temp\\bericht.pdf"_qs,
            QByteArray("%PDF\0\r\n\xFF", 8)};
}

/// As a program without Unicode writes it: no names behind the file, nothing behind the object.
QByteArray oldPackage(quint8 kind = 3)
{
    const QByteArray stream = QByteArray("\x02\0", 2) + QByteArray("f\xFCr.txt\0", 8) +
                              QByteArray("C:\\f\xFCr.txt\0", 11) + QByteArray("\0\0", 2) + char(kind) + '\0' +
                              QByteArray("\x09\0\0\0", 4) + QByteArray("C:\\T.txt\0", 9) +
                              QByteArray("\x03\0\0\0abc", 7);
    return QByteArray("\x01\x05\0\0\x02\0\0\0\x08\0\0\0Package\0\0\0\0\0\0\0\0\0", 28) + char(stream.size()) +
           QByteArray("\0\0\0", 3) + stream;
}

} // namespace

TEST(PackageObject, CarriesAFileAndItsNames)
{
    for (const PackagedFile &file : {sampleFile(), PackagedFile(), PackagedFile{{}, {}, {}, "x"}})
        EXPECT_EQ(packagedFileOf(packageData(file)), file);

    PackagedFile large = sampleFile();
    large.bytes = QByteArray(3'000'000, '\x90');
    EXPECT_EQ(packagedFileOf(packageData(large)), large);
}

TEST(PackageObject, WritesWhatOtherProgramsRead)
{
    const QByteArray data = packageData({u"a.txt"_qs, u"a.txt"_qs, u"b"_qs, "hi"});
    EXPECT_EQ(data.toHex(' ').toStdString(), "01 05 00 00 02 00 00 00 08 00 00 00 50 61 63 6b 61 67 65 00 "
                                             "00 00 00 00 00 00 00 00 40 00 00 00 "
                                             "02 00 61 2e 74 78 74 00 61 2e 74 78 74 00 00 00 03 00 "
                                             "02 00 00 00 62 00 02 00 00 00 68 69 "
                                             "01 00 00 00 62 00 "
                                             "05 00 00 00 61 00 2e 00 74 00 78 00 74 00 "
                                             "05 00 00 00 61 00 2e 00 74 00 78 00 74 00 "
                                             "01 05 00 00 00 00 00 00");
    // Readers without Unicode get a name that is one.
    EXPECT_TRUE(packageData(sampleFile())
                    .contains("\xDC"
                              "berblick _ __"));
}

TEST(PackageObject, ReadsOldPackages)
{
    const auto file = packagedFileOf(oldPackage());
    ASSERT_TRUE(file);
    EXPECT_EQ(*file, (PackagedFile{u"für.txt"_qs, u"C:\\für.txt"_qs, u"C:\\T.txt"_qs, "abc"}));
    EXPECT_FALSE(packagedFileOf(oldPackage(1))); // only names a file
    EXPECT_FALSE(packagedFileOf(QByteArray(oldPackage()).replace("Package", "Paccage")));
    EXPECT_TRUE(packagedFileOf(QByteArray(oldPackage()).replace("Package", "PACKAGE")));
    EXPECT_FALSE(packagedFileOf({}));
}

TEST(PackageObject, CutAnywhereItIsWholeOrNothing)
{
    const PackagedFile file = sampleFile();
    const QByteArray whole = packageData(file);
    const qsizetype endOfFile = whole.indexOf(file.bytes) + file.bytes.size();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        // The copy has no byte behind its end that a reader could take by mistake.
        const QByteArray cut(whole.constData(), length);
        const auto read = packagedFileOf(cut);
        EXPECT_EQ(read.has_value(), length >= whole.size() - 8) << length;
        // A stream that ends earlier by its own account has lost names at most.
        QByteArray shortStream = cut;
        if (length < endOfFile)
            continue;
        shortStream[28] = char(length - 32);
        const auto rest = packagedFileOf(shortStream);
        ASSERT_TRUE(rest) << length;
        EXPECT_EQ(rest->bytes, file.bytes);
        EXPECT_FALSE(rest->source.isEmpty());
    }
}

TEST(PackageObject, LengthsBeyondTheEndAreDamage)
{
    const QByteArray whole = packageData(sampleFile());
    for (qsizetype at = 0; at + 4 <= whole.size(); ++at) {
        for (const char *length : {"\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\x7F", "\0\0\0\x80"}) {
            const auto read = packagedFileOf(QByteArray(whole).replace(at, 4, length, 4));
            if (read) { // a name was hit
                EXPECT_EQ(read->bytes.size(), sampleFile().bytes.size()) << at;
            }
        }
    }
}
