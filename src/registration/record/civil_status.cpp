#include "registration/record/civil_status.h"

namespace opd::registration {

std::string civilStatusCode(const ui::ComboBox& statuses) {
    return statuses.index() < 0 ? std::string{} : std::to_string(statuses.index());
}

std::string civilStatusOfCode(const ui::ComboBox& statuses, const std::string& code) {
    for (std::size_t place = 0; place < statuses.items().size(); ++place)
        if (code == std::to_string(place))
            return statuses.items()[place];
    return {};
}

} // namespace opd::registration
