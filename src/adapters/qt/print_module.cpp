#include "adapters/qt/report/printing.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/report/paged_document.h"

#include <QPrintDialog>
#include <QPrintPreviewWidget>
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

class ToolkitPreview final : public PagePreview {
  public:
    explicit ToolkitPreview(QWidget& parent)
        : m_paper(QPrinter::HighResolution), m_widget(new QPrintPreviewWidget(&m_paper, &parent)) {
        m_paper.setOutputFormat(QPrinter::PdfFormat); // needs no printer
        m_paper.setFullPage(true);
        QObject::connect(m_widget, &QPrintPreviewWidget::paintRequested, m_widget, [this](QPrinter* printer) {
            if (m_pages)
                m_pages->paint(*printer, 1, m_pages->pageCount());
        });
    }
    ~ToolkitPreview() override {
        delete m_widget; // it uses the paper to its end
    }
    ToolkitPreview(const ToolkitPreview&) = delete;
    ToolkitPreview& operator=(const ToolkitPreview&) = delete;

    QWidget& widget() override { return *m_widget; }

    void show(std::shared_ptr<const PagedDocument> pages) override {
        m_pages = std::move(pages);
        m_pages->prepare(m_paper);
        m_widget->updatePreview();
    }

    void turnTo(int page) override { m_widget->setCurrentPage(page); }

    void zoom(bool wholePage, double factor) override {
        m_widget->setZoomMode(wholePage ? QPrintPreviewWidget::FitInView : QPrintPreviewWidget::FitToWidth);
        if (factor != 1)
            m_widget->setZoomFactor(m_widget->zoomFactor() * factor);
    }

  private:
    QPrinter m_paper; ///< never printed on: the preview asks it what a page is
    std::shared_ptr<const PagedDocument> m_pages;
    QPrintPreviewWidget* m_widget;
};

class ToolkitPrinting final : public Printing {
  public:
    report::Printed print(const report::Document& document, bool atOnce, report::PrintChoice& choice,
                          QWidget* window) override {
        const QPrinterInfo info = printerToBegin(choice.printer, atOnce);
        if (info.isNull())
            return report::Printed::NoPrinter;
        const PagedDocument pages(document);
        QPrinter printer(info, QPrinter::HighResolution);
        printer.setDocName(toQt(document.title));
        printer.setFullPage(true);
        printer.setCopyCount(choice.copies);
        pages.prepare(printer);
        if (!atOnce && !chosenByClerk(printer, pages.pageCount(), window))
            return report::Printed::Cancelled;
        pages.prepare(printer); // another printer came with paper of its own
        choice = {fromQt(printer.printerName()), printer.copyCount()};
        const int first = std::max(printer.fromPage(), 1);
        pages.paint(printer, first, printer.toPage() > 0 ? printer.toPage() : pages.pageCount());
        if (printer.printerState() == QPrinter::Error)
            throw std::runtime_error("The printer " + fromQt(printer.printerName()) + " reports an error.");
        return report::Printed::Done;
    }

    std::unique_ptr<PagePreview> makePreview(QWidget& parent) override {
        return std::make_unique<ToolkitPreview>(parent);
    }

    void listPrinters(ui::DesktopInventory& found) override {
        for (const QString& printer : QPrinterInfo::availablePrinterNames())
            found.printers.push_back(fromQt(printer));
        const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
        found.standardPrinter = fromQt(standard.printerName());
        const QPrinter::PrinterState state = standard.isNull() ? QPrinter::Idle : standard.state();
        found.standardPrinterIsStopped = state == QPrinter::Aborted || state == QPrinter::Error;
    }
};

} // namespace

} // namespace opd::qt

extern "C" opd::qt::Printing* opdCreatePrinting() {
    static opd::qt::ToolkitPrinting ofProcess;
    return &ofProcess;
}
