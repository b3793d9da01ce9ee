#include "platform/qt/QtPrompts.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <utility>

namespace norvane {

namespace {

constexpr qsizetype kLongestWord = 60;
constexpr qsizetype kLongestText = 1200;
constexpr QChar kZeroWidthSpace(0x200B);
constexpr QChar kEllipsis(0x2026);

constexpr int kButtonBits = 0x0F;
constexpr int kIconBits = 0xF0;

QMessageBox::Icon iconOf(int style)
{
    switch (style & kIconBits) {
    case Prompts::kCritical:
        return QMessageBox::Critical;
    case Prompts::kQuestion:
        return QMessageBox::Question;
    case Prompts::kExclamation:
        return QMessageBox::Warning;
    case Prompts::kInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

} // namespace

QString textForBox(const QString &text)
{
    // The toolkit breaks lines at line feeds only.
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    QString shown;
    qsizetype word = 0;
    for (const QChar unit : std::as_const(lines)) {
        const bool insidePair = unit.isLowSurrogate();
        if (shown.size() >= kLongestText && !insidePair)
            return shown + kEllipsis;
        word = unit.isSpace() ? 0 : word + 1;
        if (word > kLongestWord && !insidePair) {
            shown += kZeroWidthSpace;
            word = 1;
        }
        // A NUL would end the text early in some styles.
        shown += unit.isNull() ? QChar(QChar::Space) : unit;
    }
    return shown;
}

Prompts::Answer QtPrompts::messageBox(const QString &text, int style, const QString &title)
{
    const bool question = (style & kButtonBits) == kYesNo;
    QWidget *parent = (style & kSystemModal) ? nullptr : QApplication::activeWindow();
    // On the heap: its parent may be a note that goes while the box stands open.
    const QPointer<QMessageBox> box = new QMessageBox(parent);
    box->setIcon(iconOf(style));
    box->setWindowTitle(title);
    box->setTextFormat(Qt::PlainText);
    box->setText(textForBox(text));
    box->setWindowModality(Qt::ApplicationModal);
    if (style & kSystemModal)
        box->setWindowFlag(Qt::WindowStaysOnTopHint);
    if (question) {
        box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box->setDefaultButton(QMessageBox::No);
        box->setEscapeButton(QMessageBox::No);
    } else {
        box->setStandardButtons(QMessageBox::Ok);
        box->setDefaultButton(QMessageBox::Ok);
        box->setEscapeButton(QMessageBox::Ok);
    }
    // Most boxes follow a hot key or a tick, when another program has the keyboard.
    box->show();
    box->raise();
    box->activateWindow();
    const int pressed = box->exec();
    delete box.data();
    if (!question)
        return kOk;
    return pressed == QMessageBox::Yes ? kYes : kNo;
}

QString QtPrompts::chooseFolder(const QString &title, const QString &start)
{
    const bool startExists = !start.isEmpty() && QDir(start).exists();
    const QPointer<QFileDialog> dialog = new QFileDialog(QApplication::activeWindow(), title);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setDirectory(startExists ? start : QDir::homePath());
    QString folder;
    if (dialog->exec() == QDialog::Accepted && dialog && !dialog->selectedFiles().isEmpty())
        folder = QDir::toNativeSeparators(dialog->selectedFiles().constFirst());
    delete dialog.data();
    return folder;
}

} // namespace norvane
