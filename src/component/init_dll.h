#pragma once

#include "com/unknown.h"

#include <cstdint>

/// The public face of the component: all that a host program needs besides the binary shape in `com/`.
///
/// A host creates the class through the class registry (`com::createInstanceOf<IInitDLL>(initDllProgramId,
/// iidInitDLL)`), sets UserID and SearchCriteria, hands its connection over with InitDLLConnection, and calls
/// InitSetup.
///
/// Every member answers an HRESULT. After a failure `com::lastErrorText()` has the description for the calling thread,
/// fit to be shown; no member lets an exception out. A null pointer where a text, number or object is needed answers
/// errorPointer. Texts are UTF-8 with a zero byte at the end. All objects of one thread share one session; each thread
/// has its own. Windows run on the thread that calls InitSetup, and because a process has one screen, one thread of a
/// process shows windows; InitSetup fails on any other.
namespace opd {

inline constexpr const char* initDllProgramId = "OPDRegistration.InitDLL";
inline constexpr com::Guid classIdInitDLL{0xA9D6F7B0, 0x1C42, 0x4E6E, {0x8B, 0x5D, 0x03, 0xF2, 0x6A, 0x97, 0x41, 0xCE}};
inline constexpr com::Guid iidInitDLL{0x00CB8F23, 0x5680, 0x49CB, {0x9C, 0xB9, 0xC4, 0x63, 0xD4, 0xD9, 0xA2, 0x27}};

/// Where the workstation user's connection settings are kept: the keys "User", "Password" and "Server" of this section
/// of this application's settings. An empty user asks for integrated security.
inline constexpr const char* connectionSettingsApplication = "QUORIN Current User";
inline constexpr const char* connectionSettingsSection = "Connection";

/// The section of the same settings that says how database servers are reached: the keys of ado::server_setting.
inline constexpr const char* serverSettingsSection = "SQL Server";

/// The section of the same settings that names, under the key "Folder", where the patients' photographs are kept.
inline constexpr const char* pictureSettingsSection = "Pictures";

/// The sections of the same settings that say how the desk saves, searches and is typed into.
inline constexpr const char* savingSettingsSection = "Saving";
inline constexpr const char* searchingSettingsSection = "Searching";
inline constexpr const char* entrySettingsSection = "Entry";

class IInitDLL : public com::IUnknown {
  public:
    /// Reads the hospital's settings and shows the patient search; returns when the clerk has closed every window.
    /// Needs the connection. Answers `ok` when a patient was opened and the search is to be shown for the next one,
    /// `okButFalse` when the clerk closed the search itself, and otherwise a failure: without a connection, when the
    /// settings cannot be read, when the code search component is not registered, when no window can be shown.
    /// May be called again; settings are then read again.
    virtual com::HResult InitSetup() = 0;

    /// Closes the shared connection, if it is open, and opens it with the workstation user's settings.
    virtual com::HResult LoadConnection() = 0;

    /// A connection setting of the workstation user: kind 1 the login, 2 the password, 3 the server, 4 the connection
    /// string for the named database, 5 an empty text; any other kind answers errorSubscriptOutOfRange. The caller
    /// frees `*text` with `com::freeText`; it is null after a failure.
    virtual com::HResult connStr(const std::int32_t* kind, const char* const* databaseName, char** text) = 0;

    /// Takes a connection object (see com/connection_object.h) as the session's connection and opens it anew
    /// with the workstation user's settings. The connection stays the host's: it is shared, never copied, and stays
    /// open after InitSetup. An object that holds no connection answers errorInvalidArgument, and the connection
    /// handed over before stays.
    virtual com::HResult InitDLLConnection(com::IUnknown* connection) = 0;

    /// The user stamped into visits and logs. Write-only. Answers errorInvalidArgument for one with an apostrophe,
    /// which no statement can hold.
    virtual com::HResult UserID(const char* user) = 0;

    /// Pre-filled into the last name of the search; nothing is searched by itself. Write-only.
    virtual com::HResult SearchCriteria(const char* text) = 0;

    /// An object that is kept for the host, or null. Write-only.
    virtual com::HResult sSearcherObject(com::IUnknown* object) = 0;

  protected:
    ~IInitDLL() = default;
};

} // namespace opd
