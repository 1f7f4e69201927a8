#include "data/saving_settings.h"

#include "base/text/text.h"
#include "data/connection_settings.h"

namespace opd::data {

bool watchesOtherDesks(const settings::Store& settings) {
    return !text::equalsIgnoringCase(text::trimmed(settings.get(settingsApplication, savingSection, "WatchOtherDesks")),
                                     "no");
}

bool allowsOneVisitADay(const settings::Store& settings) {
    return text::equalsIgnoringCase(text::trimmed(settings.get(settingsApplication, savingSection, "OneVisitADay")),
                                    "yes");
}

} // namespace opd::data
