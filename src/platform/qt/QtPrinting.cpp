#include "platform/qt/QtPrinting.h"

#include <QApplication>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

namespace norvane {

namespace {

class PrinterJob : public PrintJob
{
public:
    QPagedPaintDevice &device() override { return m_printer; }
    bool selectionOnly() const override { return m_printer.printRange() == QPrinter::Selection; }
    QPrinter &printer() { return m_printer; }

private:
    QPrinter m_printer{QPrinter::HighResolution};
};

} // namespace

std::unique_ptr<PrintJob> QtPrinting::choosePrinter(bool offerSelection)
{
    auto job = std::make_unique<PrinterJob>();
    job->printer().setDocName(QApplication::applicationName());
    const QPointer<QPrintDialog> dialog = new QPrintDialog(&job->printer(), QApplication::activeWindow());
    dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialog->setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    dialog->setOption(QAbstractPrintDialog::PrintSelection, offerSelection);
    if (offerSelection)
        dialog->setPrintRange(QAbstractPrintDialog::Selection);
    const bool accepted = dialog->exec() == QDialog::Accepted && dialog;
    delete dialog.data();
    return accepted ? std::move(job) : nullptr;
}

} // namespace norvane
