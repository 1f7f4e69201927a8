#include "bare.h"
#include "pair.h"
#include "workplace.h"

#include "codesearch/listing_window.h"
#include "search/search_chief_complaint.h"

namespace opd::bench {

namespace {

/// What clerks type into the dialog, a key after the other, and take back again.
const std::vector<std::string>& typed() {
    static const std::vector<std::string> all = [] {
        std::vector<std::string> beginnings;
        for (const std::string word : {"FEVER FOR", "COUGH", "PAIN IN", "ABDOMINAL", "DIZZY", "RASH", "SWELLING"})
            for (std::size_t length = 1; length <= word.size(); ++length)
                beginnings.push_back(word.substr(0, length));
        return beginnings;
    }();
    return all;
}

/// A key in the complaint dialog: the statement, the ranking, the rows of the grid.
void complaintKey(benchmark::State& state, const std::string& name) {
    BriefDesktop desktop;
    Workplace place(hospital(name), desktop);
    Bare bare(hospital(name));
    search::frmSearchChiefComplaint dialog(place.session());
    dialog.SearchMode = "CHIEFCOMPLAINT";
    desktop.work = [&](ui::Window& window) {
        auto& box = static_cast<ui::TextBox&>(*window.find("txtSearchStr"));
        const auto key = [](std::size_t turn) -> const std::string& { return typed()[turn % typed().size()]; };
        measure(state,
                {.module =
                     [&](std::size_t turn) {
                         window.edited(box, key(turn));
                         return static_cast<std::size_t>(dialog.fields().grdDispWindow.rowCount());
                     },
                 .bare =
                     [&](std::size_t turn) {
                         return bare.rows("SELECT ChiefComplaintID, ChiefComplaint, BodySystem FROM "
                                          "Build_File_tbCoChiefComplaint WHERE ChiefComplaintID LIKE '%' || ?1 || "
                                          "'%' OR ChiefComplaint LIKE '%' || ?1 || '%' "
                                          "ORDER BY ChiefComplaint, ChiefComplaintID",
                                          {key(turn)});
                     }});
    };
    dialog.showModal();
}

/// From F4 in the town's field to the list of every town: query, rows, window model.
void townsListing(benchmark::State& state, const std::string& name) {
    constexpr int towns = 0;
    BriefDesktop desktop;
    Workplace place(hospital(name), desktop);
    Bare bare(hospital(name));
    const codesearch::Listing& listing = *codesearch::findListing(towns);
    std::size_t rows = 0;
    desktop.work = [&](ui::Window& window) {
        rows = static_cast<std::size_t>(static_cast<ui::Grid&>(*window.find("grdListing")).rowCount());
    };
    measure(state, {.module =
                        [&](std::size_t) {
                            codesearch::ListingWindow window(desktop, listing,
                                                             codesearch::everyRow(place.connection(), listing, ""), "");
                            window.pick("", "");
                            return rows;
                        },
                    .bare =
                        [&](std::size_t) {
                            return bare.rows("SELECT ZipCode, Town, Province FROM Build_File_tbCoAddress ORDER BY Town",
                                             {});
                        }});
}

} // namespace

void addLookups() {
    add("complaint-key", {"10000", "long-lists"}, complaintKey, {.turns = 150});
    add("towns-listing", {"long-lists"}, townsListing, {.turns = 40});
}

} // namespace opd::bench
