#include "data/entry_settings.h"

#include "base/text/text.h"
#include "data/connection_settings.h"

namespace opd::data {

bool entersQuickly(const settings::Store& settings) {
    return text::equalsIgnoringCase(text::trimmed(settings.get(settingsApplication, entrySection, "QuickEntry")),
                                    "yes");
}

} // namespace opd::data
