// Shows the main job on a desktop of its own, with a picture after each step.
//   norvane_demo PROGRAM PICTURES [TARGET...]

#include "harness/MainJob.h"
#include "harness/PageServer.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <cstdio>

using namespace norvane::test;

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("usage: norvane_demo PROGRAM PICTURES [TARGET...]\n", stderr);
        return 2;
    }
    PageServer pages;
    std::vector<std::unique_ptr<Target>> targets;
    targets.push_back(firefoxTarget(pages));
    targets.push_back(chromiumTarget(pages));
    targets.push_back(folderTarget(QStringLiteral("pcmanfm")));
    targets.push_back(folderTarget(QStringLiteral("thunar")));
    targets.push_back(mousepadTarget());

    bool held = true;
    for (const auto &target : targets) {
        if (arguments.size() > 3 && !arguments.mid(3).contains(target->name()))
            continue;
        VirtualDesktop desktop;
        if (!desktop.start({.tray = true})) {
            std::fprintf(stderr, "%s\n", qPrintable(desktop.error()));
            return 1;
        }
        MainJob job(desktop, *target, QFileInfo(arguments[1]).absoluteFilePath(),
                    QFileInfo(arguments[2]).absoluteFilePath());
        if (!job.run()) {
            std::fprintf(stderr, "%s\n", qPrintable(job.report()));
            held = false;
        }
    }
    return held ? 0 : 1;
}
