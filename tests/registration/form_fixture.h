#pragma once

#include "registration/fill_required.h"
#include "registration/listing_stand_in.h"
#include "support/test_session.h"

#include "registration/registration_form.h"
#include "registration/save/save_data.h"

#include <gtest/gtest.h>
#include <memory>

namespace opd::tests {

/// A registration form on a recording database.
struct FormFixture : TestSession {
    FormFixture() {
        globals.gCodeSearch = com::Object{listing.get()};
        provider->answer("select GETDATE() AS Tdate", oneRow({{"Tdate", clock.moment}}));
        provider->answer("Select GetDate() As CurDate", oneRow({{"CurDate", clock.moment}}));
    }

    void open(const std::string& type, const std::string& hospNum, const std::string& opdNumber) {
        form = std::make_unique<registration::RegistrationForm>(session,
                                                                registration::Opening{type, hospNum, opdNumber, {}});
        form->SetRegistrationMode();
    }

    void openNewPatient() { open("NEW", "NEW", "(TO BE GENERATED)"); }

    void fillRequired() { tests::fillRequired(form->fields()); }

    bool save(bool updateOnly) { return registration::SaveData(session, form->fields(), form->record(), updateOnly); }

    com::Ref<ListingStandIn> listing = com::Ref<ListingStandIn>::taking(new ListingStandIn);
    std::unique_ptr<registration::RegistrationForm> form;
};

} // namespace opd::tests
