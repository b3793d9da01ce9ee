#include "platform/qt/QtPrompts.h"

#include "platform/qt/FontDialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <functional>
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

QString existingFolder(const QString &start)
{
    return !start.isEmpty() && QDir(start).exists() ? start : QDir::homePath();
}

/// What the user chooses in a dialog; empty when cancelled.
QString chosenPath(const QString &title, const QString &start,
                   const std::function<void(QFileDialog &)> &prepare)
{
    // On the heap: its parent may be a note that goes while the dialog stands open.
    const QPointer<QFileDialog> dialog = new QFileDialog(QApplication::activeWindow(), title);
    dialog->setDirectory(start);
    prepare(*dialog);
    QString path;
    if (dialog->exec() == QDialog::Accepted && dialog && !dialog->selectedFiles().isEmpty())
        path = QDir::toNativeSeparators(dialog->selectedFiles().constFirst());
    delete dialog.data();
    return path;
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

QString QtPrompts::inputBox(const QString &text, const QString &title, const QString &start)
{
    const QPointer<QInputDialog> box = new QInputDialog(QApplication::activeWindow());
    box->setWindowTitle(title);
    box->setLabelText(textForBox(text));
    box->setTextValue(start);
    // A short name has room in it, and the whole title above.
    box->resize(box->sizeHint().expandedTo({box->fontMetrics().averageCharWidth() * 44, 0}));
    const bool isAccepted = box->exec() == QDialog::Accepted;
    const QString answer = isAccepted && box ? box->textValue() : QString();
    delete box.data();
    return answer;
}

QString QtPrompts::chooseFolder(const QString &title, const QString &start)
{
    return chosenPath(title, existingFolder(start), [](QFileDialog &dialog) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
    });
}

QStringList nameFilters(const QString &filter)
{
    QStringList filters;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString pattern = parts.at(i + 1);
        if (pattern == QStringLiteral("*.*")) // all files; here it would be those with a dot in the name
            pattern = QStringLiteral("*");
        if (pattern.toUpper() != pattern)
            pattern += u' ' + pattern.toUpper();
        filters += parts.at(i) + QStringLiteral(" (%1)").arg(pattern);
    }
    return filters;
}

QString QtPrompts::openFile(const QString &title, const QString &filter, const QString &start)
{
    return chosenPath(title, existingFolder(start), [&](QFileDialog &dialog) {
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setNameFilters(nameFilters(filter));
    });
}

QString QtPrompts::saveFile(const QString &title, const QString &filter, const QString &extension,
                            const QString &name)
{
    return chosenPath(title, QDir::homePath(), [&](QFileDialog &dialog) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setNameFilters(nameFilters(filter));
        dialog.setDefaultSuffix(extension);
        if (!name.isEmpty())
            dialog.selectFile(name);
    });
}

std::optional<quint32> QtPrompts::chooseColor(quint32 start)
{
    const QPointer<QColorDialog> dialog = new QColorDialog(colorOfValue(start), QApplication::activeWindow());
    std::optional<quint32> color;
    if (dialog->exec() == QDialog::Accepted && dialog)
        color = valueOfColor(dialog->selectedColor());
    delete dialog.data();
    return color;
}

std::optional<FontChoice> QtPrompts::chooseFont(const FontChoice &start)
{
    const QPointer<FontDialog> dialog = new FontDialog(start, QApplication::activeWindow());
    std::optional<FontChoice> font;
    if (dialog->exec() == QDialog::Accepted && dialog)
        font = dialog->choice();
    delete dialog.data();
    return font;
}

} // namespace norvane
