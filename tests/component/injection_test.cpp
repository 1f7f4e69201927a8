// Texts that try to leave their quotes, in every field and search box, over the wire: what the server receives has no
// other shape than with harmless texts, and what a field shows is what is stored.
#include "component/served_desk.h"
#include "component/support.h"

#include "com/class_registry.h"
#include "com/connection_object.h"
#include "registration/meanwhile/field_values.h"
#include "registration/record/sent_fields.h"
#include "search/master_search.h"

#include <cctype>
#include <map>
#include <set>

namespace opd::tests {

namespace {

const std::string harmless[] = {"ABC", "12", "1", ""};
const std::string hostile[] = {"'",
                               "''",
                               "';delete Patient_Data..tbMaster;--",
                               "x' OR '1'='1",
                               "/*' */ or 1=1 -- ",
                               "a\\",
                               "\\' ; drop table tbMaster --",
                               "%27%20or%201=1",
                               "\u2019 or 1=1 \u2019",
                               "\u02BC;--",
                               "\uFF07 or 1=1;\uFF07",
                               std::string("nul\0'; x", 8),
                               "one\r\ntwo' three\n",
                               "[A-Z]% _[^a]",
                               std::string(49, 'Q') + "''",
                               std::string(99, 'Q') + "'';--",
                               "\u00D1\u00D1\u00D1" + std::string(3999, 'Q') + "'"};

/// The statement without what stands in quotes, and without numbers; of dates that may be missing, too.
std::string shapeOf(const std::string& statement) {
    std::string shape;
    bool isQuoted = false;
    for (const char character : statement) {
        if (character == '\'') {
            isQuoted = !isQuoted;
            shape += isQuoted ? "?" : "";
        } else if (!isQuoted && (std::isdigit(static_cast<unsigned char>(character)) == 0)) {
            shape += character;
        } else if (!isQuoted && !shape.ends_with('0')) {
            shape += '0';
        }
    }
    return text::replaced(shape, "= null", "= ?") + (isQuoted ? " and an open quote" : "");
}

struct NoOpener final : search::RegistrationOpener, search::VisitsOpener {
    search::Opened open(const search::Opening&) override { return search::Opened::Shown; }
    void showTodaysVisits() override {}
};

template <class Kind> std::vector<Kind*> boxesOf(const ui::Window& window) {
    std::vector<Kind*> boxes;
    for (ui::Control* control : window.everything())
        if (auto* box = dynamic_cast<Kind*>(control))
            boxes.push_back(box);
    return boxes;
}

class Injection : public testing::Test {
  protected:
    /// The code search component as a desk creates it, on the desk's own connection.
    Injection() {
        registerClassesOf(codeSearchLibrary());
        com::Object& search = m_desk.globals.gCodeSearch;
        search = com::Object{com::createInstance("Trellicode.clsCodeSearch", com::iidLateBound).get()};
        search.call("Initialize_Classes");
        search.set("Connection",
                   com::Ref<com::IUnknown>::sharing(com::makeConnectionObject(m_desk.globals.gConnection).get()));
        ui::Desktop::setOfThread(&m_desk.desktop);
    }
    ~Injection() override { ui::Desktop::setOfThread(nullptr); }

    std::set<std::string> shapes() {
        std::set<std::string> found;
        for (const testserver::Received& received : m_desk.server.received())
            found.insert(shapeOf(received.text));
        m_desk.server.forgetReceived();
        return found;
    }

    /// What a clerk or another program puts into each box, and what the desk asks when it is left.
    void writeEverywhere(ui::Window& window, registration::Fields& fields, const std::string& text) {
        for (ui::TextBox* box : boxesOf<ui::TextBox>(window)) {
            if (!box->enabled() || box->readOnly || !registration::isSent(fields, *box))
                continue;
            if (box->coded != nullptr)
                lookUp(window, *box, text);
            window.written(*box, text);
            ++m_written;
            if (!window.requestFocus(fields.header.txtLastName) || !box->refusal().empty())
                restore(fields, *box);
        }
        for (ui::MaskedBox* box : boxesOf<ui::MaskedBox>(window))
            window.written(*box, text);
        ui::Grid& dependents = fields.employment.mshDependents;
        dependents.setCell(1, 0, text.substr(0, text.find('\0'))); // one with a null is never sent
        dependents.setCell(1, 1, "01/02/2015");
    }

    /// The list of the codes, asked for the text; where it opens, the text is put into its search box.
    void lookUp(ui::Window& window, ui::TextBox& code, const std::string& text) {
        window.written(code, text);
        inNextWindow(text, [&] { window.click(code.coded->lookup); });
        code.setRefusal("");
    }

    /// Every listing of the component, asked for the text and whole, those that no field asks for too.
    void searchListings(const std::string& text) {
        constexpr std::int32_t most = 50;
        com::Object& search = m_desk.globals.gCodeSearch;
        for (std::int32_t listing = 0; listing < most; ++listing) {
            search.set("OtherSectionID", std::string{listing == 21 ? "AA" : ""});
            for (const std::string& asked : {text, std::string{}})
                inNextWindow(text, [&] { search.flag("SearchListing", {asked, listing}); });
        }
        search.set("OtherSectionID", std::string{});
    }

    /// Puts the text into each box of the window that the work opens, if it opens one.
    template <class Work> void inNextWindow(const std::string& text, const Work& work) {
        m_desk.desktop.work([&](ui::Window& window) {
            if (window.name() == "frmCodeSearch")
                m_listings.emplace(window.caption());
            writeInto(window, text);
        });
        work();
        m_desk.desktop.forgetWork();
    }

    static void writeInto(ui::Window& window, const std::string& text) {
        for (ui::TextBox* box : boxesOf<ui::TextBox>(window)) {
            if (!box->enabled() || box->readOnly)
                continue;
            window.written(*box, text);
            for (ui::Timer* timer : boxesOf<ui::Timer>(window))
                if (timer->running() && timer->onTick)
                    timer->onTick();
            window.pressKey(ui::key::enter);
        }
    }

    /// A text that the field refuses gives way to one that it takes.
    void restore(registration::Fields& fields, ui::TextBox& box) {
        ++m_refused;
        box.setText("");
        if (box.coded != nullptr)
            box.setRefusal("");
        fillBlank(fields);
        box.window().setFocus(fields.header.txtLastName);
    }

    void fillBlank(registration::Fields& fields) {
        const std::string lastName = fields.header.txtLastName.text(), firstName = fields.header.txtFirstName.text();
        fillRequired(fields, text::isBlank(lastName) ? "BLANK" : lastName);
        if (!text::isBlank(firstName))
            fields.header.txtFirstName.setText(firstName);
        fields.personal.txtNationality.setText("1");
        fields.header.txtBirthDate.setText("03/" + std::to_string(10 + m_registered) + "/1980"); // nobody else's
    }

    /// Registers a patient with the text in every field. What the fields said that they store, by their names.
    std::map<std::string, std::string> registerWith(const std::string& text) {
        m_registered = (m_registered + 1) % 21;
        m_form = m_desk.open({"NEW", "NEW", "(TO BE GENERATED)", {}});
        registration::Fields& fields = m_form->fields();
        std::map<std::string, std::string> shown;
        bool isOpen = true;
        m_desk.desktop.messages.clear();
        m_desk.desktop.work([&](ui::Window& window) {
            writeEverywhere(window, fields, text);
            fillBlank(fields);
            for (int time = 0; isOpen && time < 20; ++time) {
                shown = valuesOf(*m_form, registration::FieldValues::Meaning::Written);
                window.click(fields.buttons.cmdSave);
                isOpen = window.isOpen();
                if (auto* box = dynamic_cast<ui::TextBox*>(window.focus()); isOpen && box != nullptr)
                    restore(fields, *box);
            }
        });
        m_desk.desktop.show(m_form->window());
        EXPECT_FALSE(isOpen) << m_desk.lastMessage();
        EXPECT_TRUE(m_desk.told("was registered as")) << m_desk.lastMessage();
        m_desk.desktop.forgetWork();
        return shown;
    }

    std::map<std::string, std::string> valuesOf(registration::RegistrationForm& form,
                                                registration::FieldValues::Meaning meaning) {
        const registration::FieldValues values(form.window(), form.fields(), form.record(), meaning);
        std::map<std::string, std::string> found;
        for (const auto& value : values.all()) {
            const ui::Control& field = *form.window().find(value.control.text());
            const bool holdsText = field.kind() == ui::Kind::TextBox || field.kind() == ui::Kind::MaskedBox ||
                                   field.kind() == ui::Kind::Grid;
            if (holdsText && registration::isSentHere(form.fields(), field, m_desk.globals, form.record()))
                found[value.control.text()] = value.stored;
        }
        return found;
    }

    void searchFor(const std::string& text) {
        searchListings(text);
        NoOpener opener;
        search::frmMasterSearch form(m_desk.session, opener, opener);
        m_desk.desktop.work([&](ui::Window& window) {
            writeInto(window, text);
            window.click(form.fields().search);
        });
        form.showModal();
        m_desk.desktop.forgetWork();
    }

    const TemporaryFolder m_folder;
    const Variable m_registry{"OPD_CLASS_REGISTRY", (m_folder / "classes.ini").string()};
    ServedDesk m_desk;
    std::unique_ptr<registration::RegistrationForm> m_form;
    std::set<std::string> m_listings; ///< the titles of those that were shown
    int m_written = 0, m_refused = 0, m_registered = 0;
};

TEST_F(Injection, LeavesEveryStatementInItsShapeAndStoresWhatTheFieldsShow) {
    for (const std::string& text : harmless) {
        registerWith(text);
        searchFor(text);
    }
    const std::set<std::string> documented = shapes();
    EXPECT_GT(documented.size(), 20U);
    EXPECT_GT(m_written, 200);
    for (const std::string& text : hostile) {
        SCOPED_TRACE(text.substr(0, 60));
        const auto shown = registerWith(text);
        for (const std::string& shape : shapes())
            EXPECT_TRUE(documented.contains(shape)) << shape;
        const auto stored = m_desk.open({"Edit", m_form->record().SaveHospNum, m_form->record().SaveIDNum + "B", {}});
        for (const auto& [field, value] : valuesOf(*stored, registration::FieldValues::Meaning::Stored))
            if (field != "txtAge") {
                EXPECT_EQ(value, text::replaced(shown.at(field), "'", "`")) << field;
            }
        m_desk.server.forgetReceived();
        searchFor(text);
        for (const std::string& shape : shapes())
            EXPECT_TRUE(documented.contains(shape)) << shape;
    }
    EXPECT_EQ(m_listings.size(), 8U) << "every listing of the component";
    std::cout << m_written << " fields written, " << m_refused << " texts refused\n";
}

} // namespace
} // namespace opd::tests
