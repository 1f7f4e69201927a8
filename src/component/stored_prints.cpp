#include "component/stored_prints.h"

#include "base/text/leading_number.h"

#include <algorithm>
#include <exception>

namespace opd {

namespace {

constexpr const char* application = "opd-desk-printers";
constexpr int mostCopies = 99; // what a printer dialog offers; more is a slip in the file

} // namespace

report::PrintChoice StoredPrints::choiceFor(const std::string& kind) const {
    try {
        const double copies = text::leadingNumber(m_store.get(application, kind, "Copies"));
        return {m_store.get(application, kind, "Printer"),
                static_cast<int>(std::clamp(copies, 1.0, double{mostCopies}))};
    } catch (const std::exception&) {
        return {};
    }
}

void StoredPrints::keep(const std::string& kind, const report::PrintChoice& choice) {
    try {
        m_store.set(application, {{kind, "Printer", choice.printer}, {kind, "Copies", std::to_string(choice.copies)}});
    } catch (const std::exception&) {
        // A home folder that cannot be written costs the clerk one more choice.
    }
}

} // namespace opd
