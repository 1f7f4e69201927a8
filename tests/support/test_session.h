#pragma once

#include "support/recording_provider.h"
#include "support/test_desktop.h"

#include "session/session.h"

#include <map>

namespace opd::tests {

class FixedClock final : public Clock {
  public:
    DateTime moment{2026, 11, 24, 14, 5, 0};
    DateTime now() const override { return moment; }
};

class MemoryStore final : public settings::Store {
  public:
    std::map<std::string, std::string> values; ///< by key
    std::string get(const std::string&, const std::string&, const std::string& key) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::string{} : found->second;
    }
};

/// A session on a recording database, with the clock standing at 24 November 2026, 14:05.
struct TestSession {
    TestSession() {
        providers.add("recording", provider);
        globals.gConnection = std::make_shared<ado::Connection>(providers);
        globals.gConnection->Open("Data Source=recording");
        globals.gServerDate = clock.moment;
        globals.gUserID = "CLERK";
    }

    std::shared_ptr<RecordingProvider> provider = std::make_shared<RecordingProvider>();
    ado::Providers providers;
    Globals globals;
    TestDesktop desktop;
    FixedClock clock;
    MemoryStore store;
    Session session{globals, desktop, clock, store, {}};
};

} // namespace opd::tests
