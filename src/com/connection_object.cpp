#include "com/connection_object.h"

#include "com/counted.h"

namespace opd::com {

namespace {

class ConnectionObject final : public Counted<IConnectionObject> {
  public:
    explicit ConnectionObject(std::shared_ptr<ado::Connection> connection)
        : Counted(iidConnectionObject), m_connection(std::move(connection)) {}

    const std::shared_ptr<ado::Connection>& connection() const override { return m_connection; }

  private:
    std::shared_ptr<ado::Connection> m_connection;
};

} // namespace

Ref<IConnectionObject> makeConnectionObject(std::shared_ptr<ado::Connection> connection) {
    return Ref<IConnectionObject>::taking(new ConnectionObject(std::move(connection)));
}

} // namespace opd::com
