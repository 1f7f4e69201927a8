#pragma once

#include "codesearch/listing_fields.h"
#include "registration/fields/fields.h"
#include "registration/meanwhile/changed_meanwhile_fields.h"
#include "reports/report_viewer_fields.h"
#include "search/lookup_fields.h"
#include "search/master_search_fields.h"
#include "visits/todays_visits_fields.h"

namespace opd::qt::samples {

/// The search window without its behaviour.
struct SearchWindow : ui::Window, search::MasterSearchFields {
    SearchWindow()
        : Window("frmMasterSearch", "Master Patient Search"), MasterSearchFields(static_cast<Window&>(*this)) {}
};

/// The registration form without its behaviour.
struct RegistrationWindow : ui::Window, registration::Fields {
    RegistrationWindow() : Window("frmRegistration", "Registration"), Fields(static_cast<Window&>(*this)) {}
};

/// The choice between two desks without its behaviour.
struct ChangedMeanwhile : ui::Window, registration::ChangedMeanwhileFields {
    ChangedMeanwhile()
        : Window("frmChangedMeanwhile", "Changed at Another Desk"),
          ChangedMeanwhileFields(static_cast<Window&>(*this)) {}
};

/// Either search dialog without its behaviour.
struct SearchDialog : ui::Window, search::SearchDialogFields {
    explicit SearchDialog(ui::Literal name = "frmSearchNew", ui::Literal caption = "Barangay")
        : Window(name, caption), SearchDialogFields(static_cast<Window&>(*this)) {}
};

struct ChiefComplaintDialog : SearchDialog {
    ChiefComplaintDialog() : SearchDialog("frmSearchChiefComplaint", "Chief Complaints") {}
};

/// The doctor pick list without its behaviour.
struct PickList : ui::Window, search::PickListFields {
    PickList()
        : Window("frmPickList", "Doctor List sorted from least to most consulted"),
          PickListFields(static_cast<Window&>(*this)) {}
};

/// The listing window of the code search without its behaviour.
struct ListingWindow : ui::Window, codesearch::ListingFields {
    ListingWindow() : Window("frmCodeSearch", "Services"), ListingFields(static_cast<Window&>(*this)) {}
};

/// The list of today's visits without its behaviour.
struct TodaysVisits : ui::Window, visits::TodaysVisitsFields {
    TodaysVisits() : Window("frmTodaysVisits", "Today's Visits"), TodaysVisitsFields(static_cast<Window&>(*this)) {}
};

/// The report viewer without its behaviour.
struct ReportViewer : ui::Window, reports::ReportViewerFields {
    ReportViewer() : Window("frmReportViewer", "Report"), ReportViewerFields(static_cast<Window&>(*this)) {}
};

} // namespace opd::qt::samples
