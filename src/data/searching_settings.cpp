#include "data/searching_settings.h"

#include "base/text/text.h"
#include "data/connection_settings.h"

namespace opd::data {

bool carriesSexAndBirthDate(const settings::Store& settings) {
    const std::string stored = settings.get(settingsApplication, searchingSection, "CarrySexAndBirthDate");
    return text::equalsIgnoringCase(text::trimmed(stored), "yes");
}

} // namespace opd::data
