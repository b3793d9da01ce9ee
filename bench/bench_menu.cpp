// Figures of popup menus: from the call to the first picture on the screen, storing and restoring.

#include "controls/ImageList.h"
#include "controls/menustore/cStoreMenu.h"
#include "controls/menuview/MenuWindow.h"
#include "controls/menuview/NVPopupMenu.h"
#include "run_benchmarks.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>

using namespace norvane;

namespace {

void fill(PopupMenuModel &menu, int count)
{
    for (int i = 1; i <= count; ++i)
        menu.AddItem(QStringLiteral("&Entry number %1\tCtrl+F%2").arg(i).arg(i % 12 + 1), {}, i, 0, i % 8,
                     i % 7 == 0, i % 5 != 0, QStringLiteral("KEY%1").arg(i));
}

/// Closes the menu as soon as it has been painted, and remembers when that was.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(NVPopupMenu &menu) : m_menu(menu) { qApp->installEventFilter(this); }
    ~FirstPaint() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && qobject_cast<MenuWindow *>(watched) && !m_isPainting) {
            m_isPainting = true;
            watched->event(event);
            m_nanoseconds = m_timer.nsecsElapsed();
            QTimer::singleShot(0, this, [this] { m_menu.closePopup(); });
            return true;
        }
        return false;
    }
    double open()
    {
        m_isPainting = false;
        m_timer.start();
        m_menu.ShowPopupAbsolute(50, 50);
        return double(m_nanoseconds) / 1e9;
    }

private:
    NVPopupMenu &m_menu;
    QElapsedTimer m_timer;
    qint64 m_nanoseconds = 0;
    bool m_isPainting = false;
};

void openMenu(benchmark::State &state)
{
    QWidget owner;
    owner.show();
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::darkGreen);
    const IconList icons(QVector<QIcon>(8, QIcon(pixmap)));
    NVPopupMenu menu;
    menu.setHwndOwner(&owner);
    menu.setImageList(&icons);
    menu.setGradientHighlight(true);
    fill(menu, int(state.range(0)));
    FirstPaint firstPaint(menu);
    for ([[maybe_unused]] auto unused : state) {
        state.SetIterationTime(firstPaint.open());
        QCoreApplication::processEvents();
    }
}

void buildMenu(benchmark::State &state)
{
    for ([[maybe_unused]] auto unused : state) {
        PopupMenuModel menu;
        fill(menu, int(state.range(0)));
        benchmark::DoNotOptimize(menu.Count());
    }
}

/// 1,000 snapshots of 25 items.
struct Snapshots
{
    Snapshots()
    {
        fill(menu, 25);
        for (int i = 0; i < 1000; ++i) {
            keys.append(QStringLiteral("snapshot %1").arg(i));
            menu.Store(keys.constLast());
        }
    }
    PopupMenuModel menu;
    QStringList keys;
};

void storeThousand(benchmark::State &state)
{
    for ([[maybe_unused]] auto unused : state) {
        Snapshots snapshots;
        benchmark::DoNotOptimize(snapshots.menu.storedMenus().count());
    }
}

void restoreThousand(benchmark::State &state)
{
    Snapshots snapshots;
    for ([[maybe_unused]] auto unused : state) {
        for (const QString &key : snapshots.keys)
            snapshots.menu.Restore(key);
    }
}

void writeAndReadThousand(benchmark::State &state)
{
    Snapshots snapshots;
    for ([[maybe_unused]] auto unused : state) {
        QBuffer file;
        file.open(QIODevice::ReadWrite);
        snapshots.menu.StoreToFile(&file);
        file.seek(0);
        snapshots.menu.RestoreFromFile(&file);
    }
}

BENCHMARK(openMenu)->ArgName("items")->Arg(25)->Arg(200)->Arg(10'000)->UseManualTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(buildMenu)->ArgName("items")->Arg(200)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(storeThousand)->Unit(benchmark::kMillisecond);
BENCHMARK(restoreThousand)->Unit(benchmark::kMillisecond);
BENCHMARK(writeAndReadThousand)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QApplication>(argc, argv);
}
