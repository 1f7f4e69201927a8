#pragma once

#include "ports/report/document.h"

#include <filesystem>

namespace opd::report {

enum class Printed { Done, Cancelled, NoPrinter };

/// What brings documents onto paper and into files.
class Output {
  public:
    virtual ~Output() = default;

    /// Prints with the printer, pages and copies that the clerk chooses, or, `atOnce`, on the standard printer without
    /// a question. Throws std::runtime_error when the printer fails.
    virtual Printed print(const Document& document, bool atOnce) = 0;

    /// Writes a PDF file, readable by its owner alone, whole or not at all. Throws std::runtime_error with the reason.
    virtual void writePdf(const Document& document, const std::filesystem::path& file) = 0;
};

} // namespace opd::report
