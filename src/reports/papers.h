#pragma once

#include "session/session.h"
#include "ui/window.h"

#include <functional>
#include <string>

namespace opd::reports {

/// A paper besides the data sheet that a patient takes along, made by a report file of its own.
struct Paper {
    const char* kind;    ///< its printer and copies are remembered under this name
    const char* file;    ///< in the folder of the report files
    const char* caption; ///< of the window that shows it
};

inline constexpr Paper patientLabel{"Label", "Label.rpt", "Patient Label"};
inline constexpr Paper patientCard{"Card", "Card.rpt", "Patient Card"};

/// Shows the paper of a visit for reading and printing, or, `directPrint`, prints it where the last one of its kind was
/// printed; returns when its window is closed. Throws as PrepareReport and ShowReport do.
void showPaper(Session& session, const Paper& paper, const std::string& opdNumber, const std::string& hospNum,
               bool directPrint);

/// Gives a window the keys that print a paper at once: F7 the label and F8 the card, together with Shift.
void bindPrintKeys(ui::Window& window, const std::function<void(const Paper& paper)>& print);

} // namespace opd::reports
