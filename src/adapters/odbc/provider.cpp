#include "adapters/odbc/provider.h"

#include "adapters/odbc/link.h"

namespace opd::adapters::odbc {

namespace {

class OdbcProvider final : public ado::Provider {
  public:
    explicit OdbcProvider(std::function<Options()> options) : m_options(std::move(options)) {}

    bool serves(const ado::ConnectionString& settings) const override { return ado::isServer(settings.dataSource()); }

    std::unique_ptr<ado::Link> open(const ado::ConnectionString& settings, const ado::Link::OnWait& onWait) override {
        return openLink(settings, m_options(), onWait);
    }

  private:
    std::function<Options()> m_options;
};

} // namespace

std::shared_ptr<ado::Provider> makeOdbcProvider(std::function<Options()> options) {
    return std::make_shared<OdbcProvider>(std::move(options));
}

} // namespace opd::adapters::odbc
