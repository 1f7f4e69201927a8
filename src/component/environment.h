#pragma once

#include <string>

/// What the component reads from the environment: everything that its interface has no word for. A host sets these
/// before it creates InitDLL; a workstation that sets none gets real windows and the user's own settings.
namespace opd::environment {

inline constexpr const char* desktop = "OPD_DESKTOP";   ///< "qt" (the default) or "scripted"
inline constexpr const char* settings = "OPD_SETTINGS"; ///< the settings file; the user's own without it
inline constexpr const char* database = "OPD_DATABASE"; ///< a folder that stands for a store whose "Server" it is
inline constexpr const char* script = "OPD_SCRIPT";     ///< the operator script that works the desktop
inline constexpr const char* wholeScript = "OPD_SCRIPT_WHOLE"; ///< set: it ends when the clerk closes the search
inline constexpr const char* journal = "OPD_JOURNAL";        ///< the file that gets what the script does to the screen
inline constexpr const char* cameraFile = "OPD_CAMERA_FILE"; ///< a picture that stands in for the camera
inline constexpr const char* trace = "OPD_TRACE";            ///< the file that gets every statement sent

inline constexpr const char* now =
    "OPD_NOW"; ///< where the process's clock stands, "MM/dd/yyyy hh:mm"; it runs without it

/// The value of a variable, or an empty text.
std::string value(const char* variable);

} // namespace opd::environment
