#pragma once

#include "registration/fields/fields.h"
#include "search/code_listing.h"
#include "search/search_chief_complaint.h"
#include "session/session.h"

#include <optional>
#include <string>

namespace opd::registration {

/// The chief complaint and the causes of consultation: their codes, and the buttons that list them.
class ComplaintCodes {
  public:
    ComplaintCodes(Session& session, Fields& fields, const search::CodeListing& listing);
    ComplaintCodes(const ComplaintCodes&) = delete;
    ComplaintCodes& operator=(const ComplaintCodes&) = delete;

    /// Looks a chief complaint up by its exact code and keeps it; false when there is none. Throws ado::Error.
    bool Search_ChiefComplaint(const std::string& code);

  private:
    void bindChiefComplaint();
    bool showExactComplaint();
    void lookUpComplaint();
    void takeOver(const std::string& complaint);
    void bindCause(ui::CodedField& cause, ui::TextBox& next);
    void lookUpCause(ui::CodedField& cause);

    Session& m_session;
    Fields& m_fields;
    const search::CodeListing& m_listing;
    std::optional<search::frmSearchChiefComplaint> m_dialog; ///< made when it is first asked for
    search::NamedCode m_found;                               ///< by the last search for an exact code
    std::string m_taken;                                     ///< the complaint that was taken over into the memo
};

} // namespace opd::registration
