#pragma once

#include "registration/meanwhile/changed_meanwhile_fields.h"
#include "registration/meanwhile/field_values.h"
#include "ui/desktop.h"

namespace opd::registration {

/// Which of two desks a record follows.
enum class Stands {
    Mine,   ///< what stands on this desk is written over what the other one stored
    Theirs, ///< what the other desk stored stands; this form shows it
    Neither ///< back to the form as it is; nothing is written
};

/// Shows, field by field, what another desk stored while this one had the record open, and asks which of the two is to
/// stand. Esc goes back to the form.
class frmChangedMeanwhile {
  public:
    explicit frmChangedMeanwhile(std::vector<FieldDifference> differences);

    ui::Window& window() { return m_window; }
    ChangedMeanwhileFields& fields() { return m_fields; }

    /// Shows the window until the clerk has chosen. `what` says what another desk changed, and what is saved here.
    Stands ask(ui::Desktop& desktop, const std::string& what);

  private:
    void close(Stands choice);
    void list();
    void warn();
    void showCurrent();

    ui::Window m_window{"frmChangedMeanwhile", "Changed at Another Desk"};
    ChangedMeanwhileFields m_fields{m_window};
    std::vector<FieldDifference> m_differences;
    Stands m_choice = Stands::Neither;
};

} // namespace opd::registration
