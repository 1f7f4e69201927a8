#pragma once

#include "ports/report/document.h"

#include <filesystem>
#include <string>

namespace opd::report {

enum class Printed { Done, Cancelled, NoPrinter };

/// Where a document is printed, and how often.
struct PrintChoice {
    std::string printer = {}; ///< by its name; empty stands for the workstation's standard printer
    int copies = 1;
};

/// What was chosen the last time for each kind of paper: labels lie in one printer, cards in another.
class PrintMemory {
  public:
    virtual ~PrintMemory() = default;

    /// Throws nothing: a choice that cannot be read is none.
    virtual PrintChoice choiceFor(const std::string& kind) const = 0;

    /// Throws nothing: where it cannot be kept, the next print asks as the first one did.
    virtual void keep(const std::string& kind, const PrintChoice& choice) = 0;
};

/// What brings documents onto paper and into files.
class Output {
  public:
    virtual ~Output() = default;

    /// Prints with the printer, pages and copies that the clerk chooses, beginning with those of `choice`, or,
    /// `atOnce`, with these without a question. After Done the choice is what it was printed with. A printer that is
    /// gone is NoPrinter at once; otherwise the clerk chooses another. Throws std::runtime_error when the printer
    /// fails.
    virtual Printed print(const Document& document, bool atOnce, PrintChoice& choice) = 0;

    /// Writes a PDF file, readable by its owner alone, whole or not at all. Throws std::runtime_error with the reason.
    virtual void writePdf(const Document& document, const std::filesystem::path& file) = 0;
};

} // namespace opd::report
