#pragma once

#include "ports/report/output.h"
#include "script/desktop_module.h"

#include <memory>

class QWidget;

namespace opd::qt {

class PagedDocument;

/// Shows pages as they will be printed.
class PagePreview {
  public:
    virtual ~PagePreview() = default;

    /// Belongs to the preview, and goes with it.
    virtual QWidget& widget() = 0;

    virtual void show(std::shared_ptr<const PagedDocument> pages) = 0;

    /// The page, counted from 1.
    virtual void turnTo(int page) = 0;

    /// The whole page, or its width, and then larger by a factor.
    virtual void zoom(bool wholePage, double factor) = 0;
};

/// All that needs the toolkit's printing. It is a library of its own, so that a desk starts without it.
class Printing {
  public:
    virtual ~Printing() = default;

    /// As report::Output prints; `window` is what the print dialog stands before.
    virtual report::Printed print(const report::Document& document, bool atOnce, report::PrintChoice& choice,
                                  QWidget* window) = 0;

    virtual std::unique_ptr<PagePreview> makePreview(QWidget& parent) = 0;

    virtual void listPrinters(ui::DesktopInventory& found) = 0;
};

/// The printing of this process, opened when it is first asked for. Throws os::LibraryError when it cannot be.
Printing& printing();

inline constexpr const char* createPrintingSymbol = "opdCreatePrinting";

using CreatePrinting = Printing*();

} // namespace opd::qt

extern "C" {

/// What the library offers: makes the printing, which lives as long as the process.
opd::qt::Printing* opdCreatePrinting();
}
