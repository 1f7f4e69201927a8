#pragma once

#include "ports/image/image.h"
#include "ports/settings/store.h"

#include <filesystem>
#include <string>

namespace opd::reports {

/// The section and key of the workstation user's settings that name the folder of the patients' photographs.
inline constexpr const char* pictureSection = "Pictures";
inline constexpr const char* pictureFolderKey = "Folder";

/// The folder of the patients' photographs: the one that is set, or the folder "Pictures" beside an embedded hospital
/// database. Empty when there is neither.
std::string pictureFolder(const settings::Store& settings);

/// The folder as the registration form shows it, "\" at its end.
std::string pictureLocation(const std::string& folder);

/// The bitmap of a patient in a shown location. Empty for a hospital number that is no plain file name ("../x"): its
/// file would lie outside the location.
std::filesystem::path photographFile(const std::string& location, const std::string& hospNum);

/// Writes a patient's photograph, whole or not at all, making its folder where that is missing; owner and group may
/// read both. Throws std::runtime_error with the reason, also for an empty file name.
void storePhotograph(const ImageCodec& images, const Image& image, const std::filesystem::path& file);

struct StoredPhotograph {
    SharedImage image;   ///< null when there is none or it cannot be read
    std::string problem; ///< why one that is there cannot be read
};

/// A patient's photograph, if there is one.
StoredPhotograph storedPhotograph(const ImageCodec& images, const std::filesystem::path& file);

} // namespace opd::reports
