#pragma once

#include "base/text/text.h"
#include "registration/record/loaded_rows.h"
#include "search/coded_object.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace opd::registration {

/// An id text and the object that is looked up from it when it is first asked for.
template <class Object> class CodedSlot {
  public:
    std::string id;

    /// The object; made and looked up by the id when the slot is empty.
    Object& get(const Session& session) {
        if (!m_object) {
            m_object = std::make_shared<Object>(session);
            m_object->setCode(id);
        }
        return *m_object;
    }

    /// Puts an object in; the id stays as it is.
    void set(std::shared_ptr<Object> object) { m_object = std::move(object); }

    /// Takes the object out, so that the next `get` looks it up again.
    void empty() { m_object.reset(); }

  private:
    std::shared_ptr<Object> m_object;
};

/// A stored code and what the form showed of it. While the form shows the same, the stored code is sent back, also one
/// that no choice of the form stands for.
class KeptCode {
  public:
    /// Remembers what is stored, and the code that the loaded form would send for it.
    void keep(const std::string& stored, const std::string& shown) {
        m_stored = text::replaced(stored, "'", "`"); // the form does not show it, so nobody can be asked
        m_shown = shown;
        m_isKept = true;
    }

    /// The code to send where the form's choices stand for `chosen`.
    const std::string& sent(const std::string& chosen) const {
        return m_isKept && chosen == m_shown ? m_stored : chosen;
    }

    /// Follows what is stored by now, as far as the form shows the same of it.
    void follow(const KeptCode& storedNow) {
        if (!m_isKept || storedNow.m_shown == m_shown)
            *this = storedNow;
    }

  private:
    std::string m_stored;
    std::string m_shown;
    bool m_isKept = false;
};

/// The values that the form works with behind its controls. Texts start empty, flags off.
struct Record {
    // What the opener sets.
    std::string HospNum;         ///< a hospital number, or "NEW"
    std::string AdmissionNumber; ///< an OPD number, or "(TO BE GENERATED)"
    std::string FormType;        ///< "New" or "Edit", in any letter case

    bool isNew() const { return text::upper(FormType) == "NEW"; }
    bool isEdit() const { return text::upper(FormType) == "EDIT"; }
    bool isNewPatient() const { return text::upper(HospNum) == "NEW"; }
    bool isNewVisit() const { return AdmissionNumber == "(TO BE GENERATED)"; }

    // What loading finds.
    LoadedRows rows;
    bool isLoaded = false;         ///< visit and patient of an "Edit" are on the form
    bool isOnFile = false;         ///< the patient's master is on the form
    bool hasAuthorization = false; ///< the visit has a letter of authorization
    std::string VisitKindCode;     ///< "N" new patient, "O" patient on file; set in a new registration only
    std::string Findings;
    std::string Medications;
    std::array<std::string, 3> DiagnosisID;
    std::string CauseofConsultationID;
    std::string CompanyClass; ///< class of the chosen company account
    bool PhotoTaken = false;
    KeptCode PatientTypeKept;
    KeptCode ConsultationTypeKept;
    KeptCode PerUnitKept;
    KeptCode SeniorKept;
    KeptCode CorvaneKept;
    KeptCode BloodPressureKept;
    KeptCode CivilStatusKept;
    KeptCode LOAStatusKept;
    KeptCode EmploymentTypeKept;
    KeptCode EmploymentLocationKept;
    KeptCode PhilHealthKept;
    bool LOAInformedUnknown = false; ///< the stored letter has no such date, and the clerk gave none
    bool LOAReceivedUnknown = false;
    std::array<CodedSlot<search::clsService>, 5> Service;
    std::array<CodedSlot<search::clsAllergy>, 5> Allergy;
    std::array<CodedSlot<search::clsDoctor>, 5> AttendingDoctor;

    // What the check before a save computes.
    std::string SexCode;              ///< "M" or "F"
    std::string ConsultationTypeCode; ///< "W" with bill, else empty
    std::string BirthDateText;        ///< mm/dd/yyyy
    std::string CivilStatusCode;      ///< "0" child to "5" divorced, else empty

    // What the save draws and keeps.
    std::string SaveHospNum;
    std::string SaveIDNum; ///< without the trailing "B"
    std::string PatientTypeCode;
    std::string CorvanePatientCode;
    std::string HemoCode;

    /// Takes out what was looked up: it belongs to the session that looked it up, and is looked up again by its id.
    void emptySlots() {
        for (auto& slot : Service)
            slot.empty();
        for (auto& slot : Allergy)
            slot.empty();
        for (auto& slot : AttendingDoctor)
            slot.empty();
    }

    /// Takes over what is stored by now of all that the form does not show, so that a save leaves it as it stands.
    void followUnshown(const Record& storedNow);

    /// The same of a form that shows what is stored by now.
    void takeUnshown(const Record& storedNow);

    // How far the save came.
    bool isOutdated = false;      ///< the last try found other rows than the form was loaded from; nothing is stored
    bool lacksNumber = false;     ///< the last try could draw no number: nothing is stored, and what was typed is kept
    bool mayBeWritten = false;    ///< a commit went without an answer
    bool rowsTellOfDoubt = false; ///< likewise, and `rows` are from before it
    bool isWritten = false;       ///< patient and visit are stored; what belongs to them may still be missing
    std::vector<std::string> countedDoctors; ///< whose consultations the stored visit has counted
};

} // namespace opd::registration
