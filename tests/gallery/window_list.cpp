// Pictures for looking at: the Window List in its views, and the Run window.

#include "looks.h"
#include "ui/windowlist/WindowListDesk.h"
#include "windowlist/list/RunHistory.h"
#include "windowlist/windows/FTaskMgr.h"
#include "windowlist/windows/MRunDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>

using namespace norvane;
using namespace norvane::tests;
using namespace Qt::StringLiterals;

namespace {

class WindowListPictures : private WindowListDesk, private gallery::Pictures
{
public:
    explicit WindowListPictures(QString pictures) : gallery::Pictures(std::move(pictures))
    {
        windows.programSuffixes = {u" - Thunar"_s, u" — Mozilla Firefox"_s};
        openDocument(u"Letter to the landlord about the roof.odt - LibreOffice Writer"_s,
                     u"/usr/bin/soffice"_s);
        openDocument(u"*draft.txt - Mousepad"_s, u"/usr/bin/mousepad"_s);
        openFolder(u"Invoices & offers - Thunar"_s, u"/home/ada/Documents/Invoices & offers/"_s);
        openPage(u"Offers for plumbers in your neighbourhood — Mozilla Firefox"_s,
                 u"https://www.example.org/plumbers/offers?sort=price&page=2"_s);
        openPage(u"庭の手入れ — Mozilla Firefox"_s, u"https://garden.example/ja/"_s);
        quint32 colour = 0xff2d7dd2;
        for (const WindowHandle window : windows.order) {
            if (window % 2 == 0)
                continue; // these have none
            windows.at(window).smallIcon = windows.at(window).largeIcon = window;
            windows.iconImages[window] = {48, 48, QVector<quint32>(qsizetype{48} * 48, colour)};
            colour = 0xffd2602d;
        }
        for (const QString &line :
             {u"~/Documents"_s, u"mousepad \"~/My notes.txt\""_s, u"https://example.org"_s})
            RunHistory(userSettings).add(line);
    }

    bool shoot()
    {
        ShowWindowList(services);
        auto *list = dynamic_cast<FTaskMgr *>(forms.named(u"FTaskMgr"_s).constFirst());
        for (const QString &view : {u"BM_LARGE"_s, u"BM_SMALL"_s, u"BM_LIST"_s, u"BM_DETAILS"_s}) {
            list->findChild<QAction *>(view)->trigger();
            keep(*list, u"window-list-"_s + view.mid(3).toLower());
        }
        auto *menu = qobject_cast<QMenu *>(list->findChild<QAction *>(u"BM_LARGE"_s)->parent());
        menu->popup({});
        keep(*menu, u"window-list-menu"_s);
        menu->hide();
        ShowNewTask(services, list);
        auto *run = dynamic_cast<MRunDialog *>(forms.named(u"MRunDialog"_s).constFirst());
        keep(*run, u"run"_s);
        run->findChild<QComboBox *>(u"cboOpen"_s)->lineEdit()->clear();
        keep(*run, u"run-empty"_s);
        run->unload();
        list->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return isDone();
    }
};

} // namespace

int main(int argc, char **argv)
{
    return gallery::takePictures(argc, argv, QStringLiteral("window-list"),
                                 [](const QString &folder) { return WindowListPictures(folder).shoot(); });
}
