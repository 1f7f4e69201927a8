#include "visits/statements.h"

#include "base/clock/date_text.h"

namespace opd::visits::statements {

using ado::Statement;

Statement visitsOf(const DateTime& day) {
    return Statement("Select v.AdmDate, v.IDNum, v.HospNum, m.LastName, m.FirstName, m.MiddleName, s.Service, "
                     "d.LastName as DoctorLastName, d.FirstName as DoctorFirstName, v.UserID, v.OPDStatus, "
                     "v.BillingDate, v.dcrDate, v.ConsultationDate from Patient_Data..tbOutPatient v "
                     "inner join Patient_Data..tbMaster m on m.HospNum = v.HospNum "
                     "left join Build_File..tbCoService s on s.ServiceID = v.ServiceID1 "
                     "left join Build_File..tbCoDoctor d on d.DoctorID = v.DoctorID1 "
                     "where v.AdmDate >= '")
        .value(dateText(day))
        .text("' and v.AdmDate < '")
        .value(dateText(addDays(day, 1)))
        .text("' order by v.AdmDate desc, v.IDNum desc");
}

} // namespace opd::visits::statements
