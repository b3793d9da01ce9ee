// Pictures for looking at: the pages of the Options window, and the import that begins there.

#include "exchange/windows/frmImport.h"
#include "looks.h"
#include "options/windows/HotKeyBox.h"
#include "options/windows/frmAddCategory.h"
#include "options/windows/frmSetting.h"
#include "ui/options/OptionsDesk.h"

#include <QApplication>
#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

using namespace norvane;
using namespace norvane::tests;

namespace {

class OptionsPictures : private OptionsDesk, private gallery::Pictures
{
public:
    explicit OptionsPictures(QString pictures) : gallery::Pictures(std::move(pictures))
    {
        for (const QString &name : {u"Accounts"_s, u"Books & films"_s, u"Garden"_s, u"Projects"_s, u"Work"_s})
            addCategory(name);
        settings.values[u"ClassEx"_s] = {{u"Items"_s, u"1"_s}, {u"01"_s, u"gimp"_s}};
        watch.TrackedClasses = trackedClasses(settings);
        windows.open(u"IEFrame"_s, u"Offers for plumbers - Mozilla Firefox"_s);
        windows.open(u"XTerm"_s, u"me@desk: ~/work"_s);
        windows.open(u"gimp-2.10"_s, u"holiday.png"_s);
        keyboard.taken.insert({3, 'L'});
    }

    bool shoot()
    {
        auto *window = new frmSetting(options, nullptr);
        window->show();
        window->findChild<QListWidget *>(u"lstCat"_s)->setCurrentRow(1);
        emit window->findChild<HotKeyBox *>(u"HKC_Detach"_s)->refused(u"Hold Ctrl or Alt as well"_s);
        auto *tabs = window->findChild<QTabWidget *>();
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            keep(*window, u"options-%1"_s.arg(page + 1));
        }
        auto *presets = new frmAddCategory(forms, window);
        presets->show();
        presets->findChild<QListWidget *>()->item(2)->setSelected(true);
        keep(*presets, u"add-categories"_s);
        window->unload();
        shootImport();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return isDone();
    }

private:
    /// Empty, with notes, and while it runs.
    void shootImport()
    {
        test::StoreOnDisk other;
        other.makeDatabase();
        const auto open = [&] {
            other.store.close();
            auto *window = new frmImport(services, nullptr);
            window->ImpDB(other.store.DatabaseFile, {});
            window->show();
            return window;
        };
        frmImport *empty = open();
        keep(*empty, u"import-empty"_s);
        empty->unload();
        addImported(other);
        frmImport *window = open();
        auto *all = window->findChild<QPushButton *>(u"Command4"_s);
        all->click();
        window->findChild<QCheckBox *>(u"chkCat"_s)->click();
        keep(*window, u"import"_s);
        events.duringYield = [&] {
            events.duringYield = {};
            keep(*window, u"import-running"_s);
        };
        window->findChild<QPushButton *>(u"Command1"_s)->click();
        keep(*window, u"import-done"_s);
        window->unload();
    }
    void addImported(test::StoreOnDisk &other)
    {
        constexpr int kNotes = 1000;
        other.store.open();
        dao::Recordset &categories = *other.store.CategorySet();
        categories.addNew();
        categories.setField(u"Name"_s, u"Books & films"_s);
        categories.update();
        other.store.database()->beginTrans();
        for (int i = 0; i < kNotes; ++i) {
            const int ID = other.addNote(u"Offers for plumbers, page %1 of a long list of them"_s.arg(i + 1),
                                         u"https://example.org/offers/for/plumbers/%1/index.html"_s.arg(i));
            if (i >= 30)
                continue;
            const auto row = other.notes(u"ID=%1"_s.arg(ID));
            row->edit();
            row->setField(u"CAT_ID"_s, i % 3 == 1 ? 1 : 0);
            for (const QString &date : {u"DateCreated"_s, u"LastUpdate"_s})
                row->setField(date, clock.now().addSecs(100'000LL * i));
            row->update();
        }
        other.store.database()->commitTrans();
    }
};

} // namespace

int main(int argc, char **argv)
{
    return gallery::takePictures(argc, argv, QStringLiteral("options"),
                                 [](const QString &folder) { return OptionsPictures(folder).shoot(); });
}
