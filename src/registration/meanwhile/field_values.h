#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "ui/window.h"

#include <functional>
#include <string>
#include <vector>

namespace opd::registration {

/// What the fields that a save can write hold, as a clerk reads it.
class FieldValues {
  public:
    enum class Meaning {
        Stored, ///< the form is as it was loaded
        Written ///< it is as this desk would save it
    };

    FieldValues() = default;
    FieldValues(const ui::Window& window, const Fields& fields, const Record& record, Meaning meaning);

    /// One field: a box, a group of options, or a list.
    struct Value {
        ui::Name control;     ///< whose name the field bears
        std::string content;  ///< of the field as it stands: of a code the code alone
        std::string stored;   ///< what a save makes of it
        std::string codeName; ///< what a code stands for
        bool isList = false;  ///< compared in any order, and shown in its own

        /// What is stored, with what a code stands for; a list as it stands.
        std::string shown() const;
    };

    /// The fields in the order of the screen; they are the same ones of every form.
    const std::vector<Value>& all() const { return m_values; }

  private:
    std::vector<Value> m_values;
};

/// A field that another desk stored something into since the form was opened, and into which this desk would store
/// something else.
struct FieldDifference {
    std::string field; ///< as the clerk calls it
    std::string loaded;
    std::string stored;
    std::string written;
    bool isTouched; ///< the clerk of this desk changed it, too
};

/// The differences in the order of the screen, of the fields that are written. `window` knows what they are called.
std::vector<FieldDifference> differences(const ui::Window& window, const FieldValues& loaded, const FieldValues& stored,
                                         const FieldValues& written,
                                         const std::function<bool(const ui::Control&)>& isWritten);

} // namespace opd::registration
