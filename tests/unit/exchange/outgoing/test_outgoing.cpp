#include "exchange/outgoing/export_to_outlook.h"
#include "exchange/outgoing/frmMAPI.h"
#include "fakes/FakeMail.h"
#include "fakes/FakePrompts.h"
#include "platform/OutlookNotes.h"
#include "platform/errors.h"
#include "platform/linux/NoOutlookNotes.h"
#include "unit/store/StoreOnDisk.h"

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

class Mails : public testing::Test, protected test::StoreOnDisk
{
protected:
    Mails()
    {
        makeDatabase();
        store.open();
    }
    void send(int ID) { frmMAPI(store, mail, prompts).SendNorvane(ID); }

    fakes::FakeMail mail;
    fakes::FakePrompts prompts;
};

TEST_F(Mails, HoldTitleLocationAndBody)
{
    const int note = addNote(u"Tom's \"plan\"\r\nBcc: eve@example.org"_s, u"https://example.org/?a=b&c"_s);
    send(note);
    ASSERT_EQ(mail.composed.size(), 1);
    EXPECT_EQ(mail.composed[0].subject, u"Tom's \"plan\"  Bcc: eve@example.org"_s);
    EXPECT_EQ(mail.composed[0].body, u"https://example.org/?a=b&c"_s);
    EXPECT_EQ(mail.composed[0].attachmentFile, QString());

    const int placeless = addNote(u"Letters"_s, QString());
    files.write(store.bodyFile(placeless), "{\\rtf1 text}");
    send(placeless);
    ASSERT_EQ(mail.composed.size(), 2);
    EXPECT_EQ(mail.composed[1].body, u" "_s);
    EXPECT_EQ(mail.composed[1].attachmentFile, store.bodyFile(placeless));
    EXPECT_EQ(mail.composed[1].attachmentName, u"Norvane Note.rtf"_s);
    EXPECT_EQ(mail.composed[1].attachmentPosition, 0);
    files.write(store.bodyFile(note), "{\\rtf1 text}");
    send(note);
    EXPECT_EQ(mail.composed[2].attachmentPosition, 25);
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(Mails, OnlyAMissingMailProgramIsTold)
{
    const int note = addNote(u"Letters"_s);
    mail.error = kErrorInvalidCall;
    send(note);
    mail.isThere = false;
    send(note + 1);
    EXPECT_TRUE(prompts.boxes.isEmpty()) << "a note that is gone needs no mail program";
    send(note);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes[0].text.startsWith(u"There is no mail program"_s));
    store.close();
    send(note);
    EXPECT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(mail.composed.isEmpty());
}

class Outlook : public OutlookNotes
{
public:
    QStringList saved;
    void save(const QString &body) override { saved.append(body); }
};

TEST(OutlookExport, TellsHowItWent)
{
    Outlook outlook;
    NoOutlookNotes none;
    fakes::FakePrompts prompts;
    ExportToOutlook(outlook, prompts, {});
    ExportToOutlook(outlook, prompts, u"Milk\nBread"_s);
    ExportToOutlook(none, prompts, u"Milk"_s);
    EXPECT_EQ(outlook.saved, QStringList{u"Milk\nBread"_s});
    const std::pair<QString, int> told[] = {
        {u"There is nothing to export."_s, 48},
        {u"Successfully exported to Microsoft Outlook"_s, 64},
        {u"It seems you don't have Micosoft Outlook installed on this machine."_s, 16}};
    ASSERT_EQ(prompts.boxes.size(), std::ssize(told));
    for (qsizetype i = 0; i < prompts.boxes.size(); ++i) {
        EXPECT_EQ(prompts.boxes[i].text, told[i].first);
        EXPECT_EQ(prompts.boxes[i].style, told[i].second);
        EXPECT_EQ(prompts.boxes[i].title, u"Norvane"_s);
    }
}

} // namespace
