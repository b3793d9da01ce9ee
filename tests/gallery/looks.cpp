#include "looks.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStyleFactory>
#include <QTimer>
#include <QWidget>
#include <cstdio>

namespace norvane::gallery {

namespace {

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 56), QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(35, 35, 38));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 175, 250));
    palette.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
    return palette;
}

} // namespace

int takePictures(int argc, char **argv, const QString &name,
                 const std::function<bool(const QString &folder)> &shoot)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (QApplication::arguments().size() != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT\n", argv[0]);
        return 1;
    }
    const QString output = QApplication::arguments().at(1);
    const int scale = qRound(application.devicePixelRatio() * 100);
    const std::pair<QString, QPalette> palettes[] = {{QStringLiteral("light"), QApplication::palette()},
                                                     {QStringLiteral("dark"), darkPalette()}};
    bool isDone = true;
    for (const auto &[look, palette] : palettes) {
        QApplication::setPalette(palette);
        const QString folder = QStringLiteral("%1/%2-%3-%4").arg(output, name, look).arg(scale);
        isDone = QDir().mkpath(folder) && shoot(folder) && isDone;
    }
    return isDone ? 0 : 1;
}

void settle()
{
    constexpr int kSettlingMs = 250;
    QEventLoop loop;
    QTimer::singleShot(kSettlingMs, &loop, &QEventLoop::quit);
    loop.exec();
}

Pictures::Pictures(QString folder) : m_folder(std::move(folder)) {}

QString Pictures::file(const QString &name) const
{
    return m_folder + u'/' + name + QStringLiteral(".png");
}

void Pictures::keep(QWidget &window, const QString &name)
{
    settle();
    std::printf("%s\n", qPrintable(file(name)));
    require(window.grab().save(file(name)));
}

} // namespace norvane::gallery
