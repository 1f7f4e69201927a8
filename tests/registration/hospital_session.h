#pragma once

#include "registration/fill_required.h"
#include "registration/listing_stand_in.h"
#include "support/temporary_folder.h"
#include "support/test_session.h"

#include "adapters/sqlite/create_database.h"
#include "adapters/sqlite/provider.h"
#include "registration/registration_form.h"
#include "registration/save/save_data.h"

#include <filesystem>
#include <memory>
#include <string>

namespace opd::tests {

/// A session on an embedded hospital of its own.
struct HospitalSession : Workplace {
    explicit HospitalSession(const std::string& clientCode = {}) {
        adapters::sqlite::createDatabase(
            folder, {.patients = 12, .now = DateTime{2026, 11, 24, 0, 0, 0}, .clientCode = clientCode}, {});
        providers.add("sqlite", adapters::sqlite::makeSqliteProvider(clock));
        globals.gConnection = connect();
        globals.setClient(clientCode);
        globals.gCodeSearch = com::Object{listing.get()};
    }
    ~HospitalSession() { globals.gConnection->Close(); }
    HospitalSession(const HospitalSession&) = delete;
    HospitalSession& operator=(const HospitalSession&) = delete;

    std::shared_ptr<ado::Connection> connect() const {
        auto connection = std::make_shared<ado::Connection>(providers);
        connection->Open("Data Source=" + folder.string());
        return connection;
    }

    std::unique_ptr<registration::RegistrationForm> open(const registration::Opening& opening) {
        auto form = std::make_unique<registration::RegistrationForm>(session, opening);
        form->SetRegistrationMode();
        return form;
    }

    bool save(registration::RegistrationForm& form) {
        return registration::SaveData(session, form.fields(), form.record(), false);
    }

    TemporaryFolder temporary;
    std::filesystem::path folder = temporary / "hospital";
    com::Ref<ListingStandIn> listing = com::Ref<ListingStandIn>::taking(new ListingStandIn);
};

} // namespace opd::tests
