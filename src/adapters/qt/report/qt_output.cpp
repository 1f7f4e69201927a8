#include "adapters/qt/report/qt_output.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/report/paged_document.h"
#include "base/os/safe_file.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>
#include <stdexcept>

namespace opd::qt {

namespace {

/// The standard printer of this workstation, or the first one when none is the standard.
QPrinterInfo standardPrinter() {
    const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
    if (!standard.isNull())
        return standard;
    const QStringList names = QPrinterInfo::availablePrinterNames();
    return names.isEmpty() ? QPrinterInfo() : QPrinterInfo::printerInfo(names.first());
}

/// The printer of that name. Where there is none, or no name, the clerk may begin with the standard one.
QPrinterInfo printerToBegin(const std::string& name, bool atOnce) {
    const QPrinterInfo named = name.empty() ? QPrinterInfo() : QPrinterInfo::printerInfo(toQt(name));
    return !named.isNull() || (atOnce && !name.empty()) ? named : standardPrinter();
}

bool chosenByClerk(QPrinter& printer, int pageCount, QWidget* window) {
    QPrintDialog dialog(&printer, window);
    dialog.setMinMax(1, pageCount);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, pageCount > 1);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace

report::Printed QtOutput::print(const report::Document& document, bool atOnce, report::PrintChoice& choice) {
    const QPrinterInfo info = m_rehearsed ? QPrinterInfo() : printerToBegin(choice.printer, atOnce);
    if (info.isNull())
        return report::Printed::NoPrinter;
    const PagedDocument pages(document);
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(toQt(document.title));
    printer.setFullPage(true);
    printer.setCopyCount(choice.copies);
    pages.prepare(printer);
    if (!atOnce && !chosenByClerk(printer, pages.pageCount(), m_currentWindow()))
        return report::Printed::Cancelled;
    pages.prepare(printer); // another printer came with paper of its own
    choice = {fromQt(printer.printerName()), printer.copyCount()};
    const int first = std::max(printer.fromPage(), 1);
    pages.paint(printer, first, printer.toPage() > 0 ? printer.toPage() : pages.pageCount());
    if (printer.printerState() == QPrinter::Error)
        throw std::runtime_error("The printer " + fromQt(printer.printerName()) + " reports an error.");
    return report::Printed::Done;
}

void QtOutput::writePdf(const report::Document& document, const std::filesystem::path& file) {
    std::error_code missing;
    if (file.has_parent_path() && !std::filesystem::is_directory(file.parent_path(), missing))
        throw std::runtime_error("Cannot write \"" + file.string() + "\": its folder does not exist.");
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&content);
        writer.setTitle(toQt(document.title));
        const PagedDocument pages(document);
        pages.prepare(writer);
        pages.paint(writer, 1, pages.pageCount());
    }
    os::writePrivately(file, content.data().toStdString());
}

} // namespace opd::qt
