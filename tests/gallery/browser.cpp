// Pictures for looking at: the note browser and its dialogs, with notes in a real database.

#include "browser/CategoryBar.h"
#include "browser/dialogs/NewNoteDialogs.h"
#include "browser/dialogs/frmNewNote.h"
#include "browser/dialogs/frmProperty.h"
#include "browser/editor/frmEditor.h"
#include "browser/editor/frmOpen.h"
#include "browser/editor/note_editors.h"
#include "browser/frmMain.h"
#include "browser/grid/NoteGrid.h"
#include "controls/gridview/vbalGrid.h"
#include "exchange/shortcuts/FavoriteDialog.h"
#include "fakes/FakeNotifier.h"
#include "fakes/FakeTrayHost.h"
#include "looks.h"
#include "richtext/NV_RTFEdit.h"
#include "search/frmSearch.h"
#include "shell/windows/mdiMain.h"
#include "store/NoteRescue.h"
#include "ui/browser/BrowserDesk.h"

#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QProcess>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace norvane;
using namespace norvane::tests;

namespace {

constexpr int kManyNotes = 5000;

const char kBody[] =
    "{\\rtf1\\ansi{\\fonttbl{\\f0 Sans;}}{\\colortbl;\\red160\\green0\\blue0;}"
    "\\f0\\fs28\\b Call them back\\b0\\fs20\\par Ask about the \\cf1 second\\cf0  offer, "
    "and \\i when\\i0  they can deliver.\\par{\\pntext\\'b7\\tab}\\pard milk\\par bread\\par}";

class Gallery : private BrowserDesk, private gallery::Pictures
{
public:
    Gallery(QString pictures, int notes) : gallery::Pictures(std::move(pictures))
    {
        watch.IEAvailable = true;
        m_frame = new mdiMain(forms, settings, clock, Twips(96, 96));
        m_frame->resize(940, 640);
        services.isFrameVisible = [this] { return m_frame->isVisible(); };
        for (const QString &name : {u"Accounts"_s, u"Books & films"_s, u"Garden"_s, u"House"_s, u"Ideas"_s,
                                    u"Letters"_s, u"Projects"_s, u"Recipes"_s, u"Travel"_s, u"Work"_s})
            m_categories.append(addCategory(name));
        if (notes > 0)
            addNotes(notes);
        m_browser = new frmMain(services, *m_frame, m_host);
        m_browser->setAttachKey(u"Ctrl+Alt+A"_s);
        m_browser->Refresh_tbCAT();
        m_frame->show();
        m_browser->parentWidget()->setGeometry(0, 0, 860, 500);
        m_browser->bringUp();
        m_browser->Refresh_Grid();
        m_browser->GRD_Refresh(0);
        gallery::settle();
    }
    ~Gallery()
    {
        for (Form *form : forms.all()) {
            if (forms.contains(form) && form != m_frame)
                form->unload();
        }
        m_frame->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    using Pictures::isDone;

    void browser(const QString &name) { keep(*m_frame, name); }

    void browserDetails()
    {
        settings.save(u"Preview"_s, u"Left"_s, u"4200"_s);
        settings.save(u"Preview"_s, u"Top"_s, u"2400"_s);
        settings.save(u"Preview"_s, u"Width"_s, u"5200"_s);
        settings.save(u"Preview"_s, u"Height"_s, u"3000"_s);
        m_browser->togglePreview();
        browser(u"browser-preview"_s);
        m_browser->togglePreview();
        auto *bar = m_browser->findChild<CategoryBar *>();
        bar->setBarStyle(CategoryBar::kButtons);
        bar->selectFilter(m_categories[1]);
        browser(u"browser-buttons"_s);
        bar->setBarStyle(CategoryBar::kTabs);
        bar->selectFilter(0);
        gallery::settle();
        rowMenu();
    }

    void dialogs()
    {
        newNote();
        favorite();
        properties();
        NoteRescue rescue(store, files, clock, m_notifier, [](const QString &) {});
        frmEditor *editor = ShowNoteEditor(services, rescue, *m_frame, m_firstNote, u"Call the plumber"_s,
                                           u"https://plumbers.example/offers?id=2"_s);
        gallery::settle();
        browser(u"editor-in-frame"_s);
        editor->unload();
        m_frame->hide();
        editor = ShowNoteEditor(services, rescue, *m_frame, m_firstNote, u"Call the plumber"_s,
                                u"https://plumbers.example/offers?id=2"_s);
        gallery::settle();
        keep(*editor, u"editor-free"_s);
        editor->unload();
        m_frame->show();
        NV_RTFEdit text(edit);
        ShowOpenNote(services, text, u"Import into 'Shopping'"_s);
        gallery::settle();
        keep(*dynamic_cast<QWidget *>(forms.named(u"frmOpen"_s).constFirst()), u"open-note"_s);
    }

    /// Each tab, before a search and after one, and what a text does that is none.
    void search(const QString &name)
    {
        ShowSearch(services, std::nullopt);
        auto *window = dynamic_cast<frmSearch *>(forms.named(u"frmSearch"_s).constFirst());
        auto *text = window->findChild<QComboBox *>(u"cmbSearch"_s);
        auto *tabs = window->findChild<QTabWidget *>(u"Frame1"_s);
        keep(*window, name + u"-new"_s);
        text->setEditText(u"the"_s);
        QTest::keyClick(text, Qt::Key_Return);
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            keep(*window, u"%1-found-%2"_s.arg(name).arg(page + 1));
        }
        tabs->setCurrentIndex(0);
        text->setEditText(u"nothing is called so"_s);
        QTest::keyClick(text, Qt::Key_Return);
        keep(*window, name + u"-nothing"_s);
        text->setEditText(u"[the"_s);
        QTest::keyClick(text, Qt::Key_Return);
        window->resize(window->minimumSizeHint());
        keep(*window, name + u"-small-after-a-fault"_s);
        window->unload();
    }

private:
    void addNotes(int count)
    {
        static const std::pair<const char16_t *, const char16_t *> kNotes[] = {
            {u"Call the plumber", u"https://plumbers.example/offers?id=2"},
            {u"Shopping", u""},
            {u"Letter to the council", u"/home/me/Documents/council.odt"},
            {u"Holiday pictures, best of 2025", u"/home/me/Pictures/"},
            {u"Read this before the meeting on Thursday, it is long and has everything", u"http://wiki/"},
        };
        for (int number = 0; number < std::min<int>(count, std::size(kNotes)); ++number) {
            const auto &[title, location] = kNotes[number];
            const int ID = addNote(QString::fromUtf16(title), QString::fromUtf16(location));
            setField(ID, u"ACTIVE"_s, number % 3 == 0);
            setField(ID, u"CAT_ID"_s, number == 3 ? 0 : m_categories[number]);
            setField(ID, u"BackColor"_s, 0xC0FFFF);
            setField(ID, u"DateCreated"_s, clock.now().addDays(-40LL * number));
            setField(ID, u"LastUpdate"_s, clock.now().addSecs(-7777LL * number));
            files.write(store.bodyFile(ID), kBody);
            if (number == 0)
                m_firstNote = ID;
        }
        if (count > static_cast<int>(std::size(kNotes)))
            multiplyNotes(count);
        store.requeryNoteSet();
        store.requeryNoteIndex();
    }

    /// Rows by the thousand are made in one go.
    void multiplyNotes(int count)
    {
        const QString statement =
            u"with recursive n(i) as (select 6 union all select i + 1 from n where i < %1) "
            "insert into Memos(FriendlyName, WindowName, URL, Active, CAT_ID, BackColor, DateCreated, "
            "LastUpdate)"
            " select FriendlyName || ' ' || i, WindowName, URL, Active, %2 + i % 10, BackColor, DateCreated,"
            " LastUpdate from n join Memos on ID = %3 + i % 5"_s.arg(count)
                .arg(m_categories.first())
                .arg(m_firstNote);
        require(QProcess::execute(u"sqlite3"_s, {store.DatabaseFile, statement}) == 0);
    }

    /// Takes pictures of the dialog that @p open shows and waits for, and closes it.
    void keepModal(const std::function<void(QWidget &)> &shoot, const std::function<void()> &open)
    {
        QTimer::singleShot(0, m_frame, [&] {
            gallery::settle();
            QWidget *dialog = QApplication::activeModalWidget();
            require(dialog);
            if (dialog) {
                shoot(*dialog);
                dialog->close();
            }
        });
        open();
    }

    void rowMenu()
    {
        QTimer::singleShot(0, m_frame, [&] {
            gallery::settle();
            QWidget *menu = QApplication::activePopupWidget();
            require(menu);
            if (!menu)
                return;
            QPixmap picture = m_frame->grab();
            QPainter(&picture).drawPixmap(menu->pos() - m_frame->pos(), menu->grab());
            require(picture.save(file(u"browser-row-menu"_s)));
            menu->close();
        });
        vbalGrid *grid = m_browser->grid()->grid();
        const QPoint cell = grid->CellBoundary(2, 2).center();
        QTest::mouseClick(grid->viewport(), Qt::RightButton, {}, cell);
    }

    void newNote()
    {
        keepModal([this](QWidget &dialog) { keep(dialog, u"new-note"_s); },
                  [this] { (new frmNewNote(services, m_frame))->showModal(); });
        keepModal([this](QWidget &dialog) { keep(dialog, u"new-note-dropped"_s); },
                  [this] {
                      NewNoteDrop drop;
                      NewNoteDialogs(services, [this] { return m_frame; })
                          .show({u"Offer of the plumber"_s,
                                 u"/home/ada/Documents/House/Offer of the plumber.2026-11.pdf"_s, true},
                                drop);
                  });
    }

    void favorite()
    {
        QTemporaryDir favorites;
        for (const QString &name : {u"Garden"_s, u"News & weather"_s, u"Work"_s})
            QDir(favorites.path()).mkdir(name);
        FavoriteDialog dialog(edit.files, prompts, u"Offers for plumbers"_s, favorites.path() + u'/',
                              m_frame);
        dialog.show();
        keep(dialog, u"favorite"_s);
    }

    void properties()
    {
        const auto pages = [this](const QString &name) {
            return [this, name](QWidget &dialog) {
                auto *tabs = dialog.findChild<QTabWidget *>();
                for (int page = 0; page < tabs->count(); ++page) {
                    tabs->setCurrentIndex(page);
                    keep(dialog, u"%1-%2"_s.arg(name).arg(page + 1));
                }
            };
        };
        keepModal(pages(u"properties"_s),
                  [this] { frmProperty::ShowPropertyPage(services, m_firstNote, m_frame); });
        keepModal(pages(u"properties-multiple"_s), [this] {
            frmProperty::ShowPropertyPage(services, QVector<int>{m_firstNote, m_firstNote + 1}, m_frame);
        });
    }

    mdiMain *m_frame = nullptr;
    frmMain *m_browser = nullptr;
    fakes::FakeTrayHost m_host{TrayHost::Kind::Clicks};
    fakes::FakeNotifier m_notifier;
    QVector<int> m_categories;
    int m_firstNote = 0;
};

bool shoot(const QString &folder)
{
    Gallery none(folder, 0);
    none.browser(u"browser-empty"_s);
    Gallery few(folder, 5);
    few.browser(u"browser-5"_s);
    few.dialogs();
    few.search(u"search-5"_s);
    Gallery many(folder, kManyNotes);
    many.browser(u"browser-5000"_s);
    many.browserDetails();
    many.search(u"search-5000"_s);
    return none.isDone() && few.isDone() && many.isDone();
}

} // namespace

int main(int argc, char **argv)
{
    return gallery::takePictures(argc, argv, QStringLiteral("windows"), shoot);
}
