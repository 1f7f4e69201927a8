#pragma once

#include "com/unknown.h"

#include <memory>

namespace opd::ado {
class Connection;
}

namespace opd::com {

inline constexpr Guid iidConnectionObject{0x6C1F3A52, 0x8E0B, 0x4D57, {0x9A, 0x41, 0x2E, 0x77, 0x10, 0xC5, 0xD8, 0x3B}};

/// The shape in which a host hands its database connection to a component: a counted object around one ado::Connection
/// that host and component then share.
class IConnectionObject : public IUnknown {
  public:
    /// Null in an object that was made around nothing; no component takes such a one.
    virtual const std::shared_ptr<ado::Connection>& connection() const = 0;

  protected:
    ~IConnectionObject() = default;
};

/// A new connection object around a connection, closed or open.
Ref<IConnectionObject> makeConnectionObject(std::shared_ptr<ado::Connection> connection);

} // namespace opd::com
