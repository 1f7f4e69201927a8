#include "data/entry_settings.h"

#include "data/connection_settings.h"

namespace opd::data {

bool entersQuickly(const settings::Store& settings) {
    return holdsWord(settings, entrySection, "QuickEntry", "yes");
}

} // namespace opd::data
