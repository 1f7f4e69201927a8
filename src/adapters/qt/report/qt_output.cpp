#include "adapters/qt/report/qt_output.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/report/paged_document.h"
#include "adapters/qt/report/printing.h"
#include "base/os/safe_file.h"

#include <QBuffer>
#include <QPdfWriter>

#include <stdexcept>

namespace opd::qt {

report::Printed QtOutput::print(const report::Document& document, bool atOnce, report::PrintChoice& choice) {
    return m_rehearsed ? report::Printed::NoPrinter : printing().print(document, atOnce, choice, m_currentWindow());
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
