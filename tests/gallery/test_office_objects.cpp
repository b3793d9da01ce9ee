#include "Office.h"
#include "fakes/FakeFileSystem.h"
#include "richtext/RichTextBox.h"
#include "richtext/object_pictures.h"
#include "sample_documents.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace norvane;

/// What we embed is an object in the office, too, with the file in it.
TEST(OfficeObjects, AreObjectsThere)
{
    const QByteArray secret = "inside the object " + QByteArray(5'000, 'x');
    fakes::FakeFileSystem files;
    RichTextBox box(files);
    box.setText(u"before "_qs);
    box.setSelStart(7);
    box.addOleObject(packaged(iconOfFile(u"a.txt"_qs, u"The text"_qs), u"The text"_qs, u"a.txt"_qs, secret));
    box.addOleObject(packaged(*pictureOfFile(rtf::samplePng()), u"p.png"_qs, u"p.png"_qs, rtf::samplePng()));
    box.setSelText(u" behind"_qs);

    QTemporaryDir folder;
    const QString name = folder.filePath(u"objects.rtf"_qs);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(box.TextRTF());
    file.close();
    const QString said = Office().convert({name}, u"fodt"_qs, folder.path());
    ASSERT_TRUE(said.isEmpty()) << said.toStdString();

    QFile converted(folder.filePath(u"objects.fodt"_qs));
    ASSERT_TRUE(converted.open(QIODevice::ReadOnly));
    const QByteArray document = converted.readAll();
    EXPECT_EQ(document.count("<draw:object-ole"), 2);
    EXPECT_TRUE(document.contains("before"));
    EXPECT_TRUE(document.contains("behind"));
    // The compound files of the objects, as text.
    QList<QByteArray> carried;
    for (qsizetype at = document.indexOf("<draw:object-ole"); at >= 0;
         at = document.indexOf("<draw:object-ole", at + 1)) {
        const qsizetype begin = document.indexOf("<office:binary-data>", at) + 20;
        QByteArray base64 = document.mid(begin, document.indexOf('<', begin) - begin);
        carried += QByteArray::fromBase64(base64);
    }
    ASSERT_EQ(carried.size(), 2);
    EXPECT_TRUE(carried.at(0).contains("inside the object xxx"));
    EXPECT_TRUE(carried.at(1).contains(rtf::samplePng()));
}
