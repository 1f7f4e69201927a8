#include "data/searching_settings.h"

#include "data/connection_settings.h"

namespace opd::data {

bool carriesSexAndBirthDate(const settings::Store& settings) {
    return holdsWord(settings, searchingSection, "CarrySexAndBirthDate", "yes");
}

} // namespace opd::data
