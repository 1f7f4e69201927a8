#pragma once

#include "ports/report/output.h"

#include <functional>

class QWidget;

namespace opd::qt {

/// Prints by the toolkit's print dialog and writes PDF files. Under a script there is no printer: what is rehearsed
/// must not come out on paper.
class QtOutput final : public report::Output {
  public:
    /// `currentWindow` gives the window that dialogs stand before.
    QtOutput(bool rehearsed, std::function<QWidget*()> currentWindow)
        : m_rehearsed(rehearsed), m_currentWindow(std::move(currentWindow)) {}

    report::Printed print(const report::Document& document, bool atOnce, report::PrintChoice& choice) override;
    void writePdf(const report::Document& document, const std::filesystem::path& file) override;

  private:
    bool m_rehearsed;
    std::function<QWidget*()> m_currentWindow;
};

} // namespace opd::qt
