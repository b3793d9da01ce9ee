#include "controls/page_keys.h"

#include <QShortcut>
#include <QTabWidget>

namespace norvane {

void turnPagesByKeys(QTabWidget *pages, QWidget *window)
{
    const auto add = [=](QKeySequence::StandardKey keys, int step) {
        const auto *shortcut = new QShortcut(keys, window);
        QObject::connect(shortcut, &QShortcut::activated, pages, [=] {
            pages->setCurrentIndex((pages->currentIndex() + step + pages->count()) % pages->count());
        });
    };
    add(QKeySequence::NextChild, 1);
    add(QKeySequence::PreviousChild, -1);
}

} // namespace norvane
