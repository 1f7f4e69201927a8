#include "registration/meanwhile/field_values.h"

#include "base/text/text.h"
#include "registration/record/sent_fields.h"
#include "registration/subrecords/dependent_columns.h"
#include "ui/coded_field.h"
#include "ui/spoken_names.h"

#include <algorithm>

namespace opd::registration {

namespace {

using Value = FieldValues::Value;
using Meaning = FieldValues::Meaning;

template <class T> const T& as(const ui::Control& control) {
    return static_cast<const T&>(control);
}

Value plain(const ui::Control& control, std::string content) {
    Value value{control.declaredName(), std::move(content), {}, {}};
    value.stored = value.content;
    return value;
}

/// A code is compared by itself, and read with what it stands for.
Value ofBox(const Fields& fields, const ui::TextBox& box, Meaning meaning) {
    Value value = plain(box, text::trimmed(box.text()));
    if (meaning == Meaning::Written)
        value.stored = text::trimmed(textToStore(fields, box));
    if (box.coded != nullptr && &box == &box.coded->code && !value.content.empty())
        value.codeName = text::trimmed(box.coded->name.text());
    return value;
}

std::string ofCheckBox(const ui::CheckBox& box) {
    return box.value() > 1 ? "Unknown" : box.checked() ? "Yes" : "No";
}

/// The caption of the option that is chosen in a group.
std::string chosenIn(const ui::OptionButton& first) {
    for (const ui::OptionButton* option : first.group())
        if (option->selected())
            return text::trimmed(ui::plainCaption(option->caption()));
    return {};
}

/// A picker always shows some moment, also where none is stored; of a new visit none is.
bool holdsNothing(const Fields& fields, const ui::DatePicker& picker, const Record& record, Meaning meaning) {
    if (meaning == Meaning::Stored && record.isNew())
        return true;
    const AdditionalTab& letter = fields.additional;
    const bool informed = &picker == &letter.DateLOAInformed || &picker == &letter.TimeLOAInformed;
    if (informed || picker.container() == &letter.letterOfAuthorization)
        return (informed ? record.LOAInformedUnknown : record.LOAReceivedUnknown) ||
               (meaning == Meaning::Stored && !record.hasAuthorization);
    return !picker.enabled() && &picker == &fields.personal.dtpExpiration;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines)
        all += (all.empty() ? "" : "\r\n") + line;
    return all;
}

/// The children, a line each. Stored are those who have both name and birth date, in an order of the database's own.
Value ofDependents(const ui::Grid& grid) {
    std::vector<std::string> listed;
    std::vector<std::string> stored;
    for (int row = 1; row <= grid.rowCount(); ++row) {
        const std::string name = text::trimmed(grid.cell(row, nameColumn));
        const std::string birthDate = text::trimmed(grid.cell(row, birthDateColumn));
        if (!name.empty() || !birthDate.empty())
            listed.push_back(name + "  " + birthDate);
        if (!name.empty() && !birthDate.empty())
            stored.push_back(listed.back());
    }
    std::sort(stored.begin(), stored.end());
    Value value = plain(grid, joined(listed));
    value.stored = joined(stored);
    value.isList = true;
    return value;
}

/// What the boxes of a form hold, collected control by control.
class Collector {
  public:
    Collector(const Fields& fields, const Record& record, Meaning meaning)
        : m_fields(fields), m_record(record), m_meaning(meaning) {}

    std::vector<Value> values;

    void add(const ui::Control& control) {
        switch (control.kind()) {
        case ui::Kind::TextBox:
            addBox(as<ui::TextBox>(control));
            break;
        case ui::Kind::MaskedBox:
            put(control, as<ui::MaskedBox>(control).isBlank() ? "" : control.shownText());
            break;
        case ui::Kind::DatePicker:
            put(control,
                holdsNothing(m_fields, as<ui::DatePicker>(control), m_record, m_meaning) ? "" : control.shownText());
            break;
        case ui::Kind::ComboBox:
            put(control, text::trimmed(control.shownText()));
            break;
        case ui::Kind::CheckBox:
            put(control, ofCheckBox(as<ui::CheckBox>(control)));
            break;
        case ui::Kind::OptionButton:
            if (&as<ui::OptionButton>(control).firstOfGroup() == &control)
                addGroup(as<ui::OptionButton>(control));
            break;
        case ui::Kind::Grid:
            values.push_back(ofDependents(as<ui::Grid>(control)));
            break;
        default:
            break;
        }
    }

  private:
    void put(const ui::Control& control, std::string content) { values.push_back(plain(control, std::move(content))); }

    /// Where nobody chose about the health insurance, a save stores that there is none.
    void addGroup(const ui::OptionButton& first) {
        Value value = plain(*first.container(), chosenIn(first));
        const EmploymentTab& employment = m_fields.employment;
        if (m_meaning == Meaning::Written && first.container() == &employment.philHealth && value.content.empty())
            value.stored = text::trimmed(ui::plainCaption(employment.philHealthNo.caption()));
        values.push_back(std::move(value));
    }

    void addBox(const ui::TextBox& box) {
        const HistoryTab& history = m_fields.history;
        if (&box == &history.txtMedHistory && !history.others.checked())
            put(box, ""); // the box keeps what nobody stores
        else
            values.push_back(ofBox(m_fields, box, m_meaning));
    }

    const Fields& m_fields;
    const Record& m_record;
    Meaning m_meaning;
};

} // namespace

std::string Value::shown() const {
    if (isList)
        return content;
    return codeName.empty() ? stored : text::trimmed(stored + "  " + codeName);
}

FieldValues::FieldValues(const ui::Window& window, const Fields& fields, const Record& record, Meaning meaning) {
    Collector collector(fields, record, meaning);
    window.forEach([&](const ui::Control& control) {
        if (isSent(fields, control))
            collector.add(control);
    });
    m_values = std::move(collector.values);
}

std::vector<FieldDifference> differences(const ui::Window& window, const FieldValues& loaded, const FieldValues& stored,
                                         const FieldValues& written,
                                         const std::function<bool(const ui::Control&)>& isWritten) {
    const ui::SpokenNames names(window);
    std::vector<FieldDifference> found;
    for (std::size_t n = 0; n < loaded.all().size(); ++n) {
        const Value& before = loaded.all()[n];
        const Value& now = stored.all().at(n);
        const Value& ours = written.all().at(n);
        if (now.stored == before.stored || now.stored == ours.stored)
            continue;
        const ui::Control& control = *window.find(before.control.text());
        if (isWritten(control))
            found.push_back(
                {names.of(control), before.shown(), now.shown(), ours.shown(), ours.content != before.content});
    }
    return found;
}

} // namespace opd::registration
