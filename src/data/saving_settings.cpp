#include "data/saving_settings.h"

#include "data/connection_settings.h"

namespace opd::data {

bool watchesOtherDesks(const settings::Store& settings) {
    return !holdsWord(settings, savingSection, "WatchOtherDesks", "no");
}

bool allowsOneVisitADay(const settings::Store& settings) {
    return holdsWord(settings, savingSection, "OneVisitADay", "yes");
}

} // namespace opd::data
