#include "component/stored_places.h"

#include <exception>

namespace opd {

namespace {

constexpr const char* application = "opd-desk-windows";
constexpr const char* section = "Windows";

} // namespace

std::string StoredPlaces::placeOf(const std::string& window) const {
    try {
        return m_store.get(application, section, window);
    } catch (const std::exception&) {
        return {};
    }
}

void StoredPlaces::keep(const std::string& window, const std::string& place) {
    try {
        if (m_store.get(application, section, window) != place)
            m_store.set(application, {{section, window, place}});
    } catch (const std::exception&) {
        // A home folder that cannot be written costs the clerk nothing but the size of a window.
    }
}

} // namespace opd
