// Pictures for looking at: the pages of the Options window.

#include "looks.h"
#include "options/windows/HotKeyBox.h"
#include "options/windows/frmAddCategory.h"
#include "options/windows/frmSetting.h"
#include "ui/options/OptionsDesk.h"

#include <QApplication>
#include <QListWidget>
#include <QTabWidget>

using namespace norvane;
using namespace norvane::tests;

namespace {

class OptionsPictures : private OptionsDesk
{
public:
    explicit OptionsPictures(QString pictures) : m_folder(std::move(pictures))
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
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_isDone;
    }

private:
    void keep(QWidget &window, const QString &name)
    {
        m_isDone = gallery::keep(window, m_folder + u'/' + name + u".png"_s) && m_isDone;
    }

    QString m_folder;
    bool m_isDone = true;
};

} // namespace

int main(int argc, char **argv)
{
    return gallery::takePictures(argc, argv, QStringLiteral("options"),
                                 [](const QString &folder) { return OptionsPictures(folder).shoot(); });
}
