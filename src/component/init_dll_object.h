#pragma once

#include "com/counted.h"
#include "com/server.h"
#include "component/init_dll.h"
#include "ports/settings/store.h"
#include "session/session.h"

#include <memory>

namespace opd {

/// The class behind IInitDLL. It keeps nothing but where the workstation user's settings are; all else stands in the
/// session globals of the thread.
class InitDLL final : public com::Counted<IInitDLL> {
  public:
    explicit InitDLL(com::Server& server);

    com::HResult InitSetup() override;
    com::HResult LoadConnection() override;
    com::HResult connStr(const std::int32_t* kind, const char* const* databaseName, char** text) override;
    com::HResult InitDLLConnection(com::IUnknown* connection) override;
    com::HResult UserID(const char* user) override;
    com::HResult SearchCriteria(const char* text) override;
    com::HResult sSearcherObject(com::IUnknown* object) override;

  private:
    Session session() const;

    com::Server::Use m_use;
    std::unique_ptr<settings::Store> m_settings;
    std::unique_ptr<report::Engine> m_reports;
};

} // namespace opd
