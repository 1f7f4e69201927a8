#include "tests/adapters/qt/every_window.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOption>
#include <QTableView>

namespace opd::qt {
namespace {

/// What windows are remembered as, in memory.
struct Places final : ui::WindowPlaces {
    std::map<std::string, std::string> kept;

    std::string placeOf(const std::string& window) const override {
        const auto found = kept.find(window);
        return found == kept.end() ? std::string() : found->second;
    }
    void keep(const std::string& window, const std::string& place) override { kept[window] = place; }
};

/// The screens that this program was told to run on; see CMakeLists.txt.
TEST(QtScreen, EveryWindowFitsWithItsFrameAndReachesAllItsControls) {
    everyPage([](WindowShell& shell, ui::Window& form, const std::string& where) {
        const QRect screen = shell.screen()->availableGeometry();
        const QSize least = shell.minimumSizeHint() + QSize(8, 34); // the frame of a usual window manager
        if (screen.width() < 1000)
            GTEST_SKIP() << "no screen that a hospital has";
        EXPECT_LE(least.width(), screen.width()) << where;
        EXPECT_LE(least.height(), screen.height()) << where;
        EXPECT_TRUE(screen.contains(shell.frameGeometry())) << where;
        for (ui::Control* control : form.everything()) {
            if (!control->canTakeFocus() || !control->isShown())
                continue;
            form.setFocus(*control);
            hands::settle();
            const QWidget* widget = shell.viewOf(*control)->widget();
            const QRect seen = widget->visibleRegion().boundingRect();
            EXPECT_EQ(seen.height(), widget->height()) << where << " " << control->name() << " is out of sight";
            EXPECT_EQ(seen.width(), widget->width()) << where << " " << control->name() << " is out of sight";
        }
        for (const QScrollArea* page : shell.findChildren<QScrollArea*>())
            EXPECT_FALSE(page->isVisible() && page->horizontalScrollBar()->isVisible()) << where;
    });
}

/// How much of a page shows nothing: below the last thing in each of its columns.
double emptyShare(const QScrollArea& page) {
    const int width = page.widget()->width();
    const int height = page.viewport()->height();
    double empty = 0;
    for (int x = 0; x < width; ++x) {
        int lowest = 0;
        for (const QWidget* part : page.widget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (part->isVisible() && x >= part->x() && x < part->x() + part->width())
                lowest = std::max(lowest, part->y() + part->height());
        empty += std::max(0, height - lowest);
    }
    return empty / (width * height);
}

TEST(QtScreen, FieldsGrowWithTheWindowAndNoPageStaysEmpty) {
    everyPageOf<samples::RegistrationWindow>([](WindowShell& shell, ui::Window&, const std::string& where) {
        shell.resize(1366 - 8, 768 - 40 - 34);
        hands::settle();
        for (const QScrollArea* page : shell.findChildren<QScrollArea*>())
            if (page->isVisible()) {
                EXPECT_LT(emptyShare(*page), 1.0 / 3) << where;
            }
    });
    SearchDesk search;
    RegistrationDesk form;
    form.shell().resize(1366 - 8, 640);
    hands::settle();
    const auto& longest = *form.widget<QScrollArea>("scrollPersonal");
    const int unused = longest.viewport()->height() - longest.widget()->minimumSizeHint().height();
    EXPECT_TRUE(unused >= 0 && unused < 15) << "one more pixel between the rows would not fit; unused " << unused;
    const QWidget* const growing[] = {search.widget<QWidget>("gridPatientList"), form.widget<QWidget>("txtHouseStreet"),
                                      form.widget<QWidget>("txtFather_0")};
    std::vector<int> before;
    for (const QWidget* widget : growing)
        before.push_back(widget->width());
    search.shell().resize(1900, 1000);
    form.shell().resize(1900, 1000);
    hands::settle();
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_GT(growing[i]->width(), before[i] * 5 / 4) << fromQt(growing[i]->objectName());
}

/// True when a whole date fits into the box beside its frame and the sign of its calendar.
bool showsWholeDate(const QLineEdit& box) {
    const int aside = static_cast<int>(box.actions().size()) * 22 + 12;
    return box.width() >= box.fontMetrics().horizontalAdvance("00/00/0000") + aside;
}

TEST(QtScreen, AnEmptyDateShowsAllItsPlacesAndIsEmptyAllTheSame) {
    EXPECT_TRUE(showsWholeDate(*SearchDesk().widget<QLineEdit>("txtBirthDate")));
    RegistrationDesk desk;
    const auto* box = desk.widget<QLineEdit>("txtBirthDate");
    EXPECT_TRUE(showsWholeDate(*box));
    EXPECT_EQ(box->displayText(), "__/__/____");
    EXPECT_EQ(desk.hands.shownText(desk.form.header.txtBirthDate), "  /  /    ");
    desk.form.header.txtBirthDate.setText("03/  /1980");
    EXPECT_EQ(box->displayText(), "03/__/1980");
}

/// What a clerk expects to read whole in a field, however small the screen.
const std::map<std::string, const char*> expectedTexts{{"txtOPDNum", "(TO BE GENERATED)"},
                                                       {"txtHospNum", "00000000"},
                                                       {"dtpAdmDate", "00/00/0000"},
                                                       {"txtLastName", "DELOS SANTOS"},
                                                       {"txtTitle", "ENGR."},
                                                       {"txtAge", "100"},
                                                       {"txtZipCode", "1000"},
                                                       {"txtTelNum(2)", "0917-123-4567"},
                                                       {"txtPersonal(7)", "ROMAN CATHOLIC"},
                                                       {"txtFather(2)", "0917-123-4567"},
                                                       {"txtAccount(0)", "00000000"},
                                                       {"dtpExpiration", "00/00/0000"},
                                                       {"txtNotify(2)", "0917-123-4567"},
                                                       {"txtNotify(3)", "GRANDMOTHER"},
                                                       {"txtInformant(2)", "0917-123-4567"},
                                                       {"txtInformant(3)", "GRANDMOTHER"},
                                                       {"txtService(0)", "A25"},
                                                       {"txtChiefComplaintID(0)", "CC1039"},
                                                       {"txtBP(0)", "120"},
                                                       {"txtPersonal(6)", "FILIPINO"},
                                                       {"txtPersonal(7)", "ROMAN CATHOLIC"},
                                                       {"txtTemperature", "36.5"},
                                                       {"txtWeight", "102.5"},
                                                       {"txtAllergy(0)", "A25"},
                                                       {"txtEmployer(2)", "0917-123-4567"}};

int roomForText(const QLineEdit& field) {
    QStyleOptionFrame frame;
    frame.initFrom(&field);
    frame.lineWidth = 1;
    const int inside = field.style()->subElementRect(QStyle::SE_LineEditContents, &frame, &field).width();
    return inside - 4 - 22 * static_cast<int>(field.actions().size());
}

TEST(QtScreen, FieldsAndColumnsShowWholeWhatTheyAreExpectedToHold) {
    const int width = QGuiApplication::primaryScreen()->availableGeometry().width();
    if (width < 1050) // there the names of codes are cut
        GTEST_SKIP() << "narrower than a usual screen with large fonts";
    std::size_t seen = 0;
    everyPageOf<samples::RegistrationWindow>([&](WindowShell& shell, ui::Window& form, const std::string& where) {
        for (ui::Control* control : form.everything()) {
            const auto expected = expectedTexts.find(control->name());
            const auto* field = qobject_cast<QLineEdit*>(shell.viewOf(*control)->widget());
            if (expected == expectedTexts.end() || field == nullptr || !field->isVisible())
                continue;
            ++seen;
            EXPECT_GE(roomForText(*field), field->fontMetrics().horizontalAdvance(expected->second))
                << where << " " << control->name();
        }
    });
    EXPECT_GE(seen, expectedTexts.size());

    SearchDesk search;
    const std::string longName = "DELOS SANTOS-VILLANUEVA-CASTRO";
    search.form.gridPatientList.show(ui::gridColumns("<Last Name|<FirstName|<Address", {2000, 2000, 6000}),
                                     {{longName, "ANA", "1 MABINI ST."}});
    const auto* list = search.widget<QTableView>("gridPatientList");
    EXPECT_GT(list->columnWidth(0), list->fontMetrics().horizontalAdvance(toQt(longName)));

    // A text for which there is no room can be scrolled to.
    const std::string longAddress(300, 'M');
    search.form.gridPatientList.show(ui::gridColumns("<Last Name|<FirstName|<Address", {2000, 2000, 6000}),
                                     {{"SANTOS", longName + longName, longAddress}});
    EXPECT_GT(list->columnWidth(2), list->fontMetrics().horizontalAdvance(toQt(longAddress)));
    EXPECT_LT(list->columnWidth(1), list->fontMetrics().horizontalAdvance(toQt(longName + longName)));
    search.form.setFocus(search.form.gridPatientList);
    search.press("Right");
    EXPECT_GT(list->columnWidth(1), list->fontMetrics().horizontalAdvance(toQt(longName + longName)));
    for (int presses = 0; presses < 10; ++presses)
        search.press("Right");
    EXPECT_EQ(list->horizontalScrollBar()->value(), list->horizontalScrollBar()->maximum());
}

TEST(QtScreen, AWindowOpensAsItWasLeft) {
    Places places;
    const auto openAnd = [&](const std::function<void(WindowShell&)>& use) {
        samples::SearchDialog dialog;
        QtDesktop desktop(nullptr, &places);
        desktop.show(dialog);
        hands::settle();
        use(*desktop.currentShell());
        hands::settle();
        dialog.unload();
    };
    openAnd([](WindowShell& shell) { shell.resize(640, 500); });
    openAnd([](WindowShell& shell) {
        EXPECT_EQ(shell.size(), QSize(640, 500));
        shell.showMaximized();
    });
    openAnd([](WindowShell& shell) {
        EXPECT_TRUE(shell.isMaximized());
        shell.showNormal();
    });
    openAnd([](WindowShell& shell) {
        EXPECT_FALSE(shell.isMaximized());
        EXPECT_EQ(shell.size(), QSize(640, 500));
    });
    places.keep("frmSearchNew", "99999x99999");
    openAnd([](WindowShell& shell) { EXPECT_LE(shell.height(), shell.screen()->availableGeometry().height()); });
    places.keep("frmSearchNew", "nonsense");
    openAnd([](WindowShell& shell) { EXPECT_GE(shell.height(), 300); });
}

} // namespace
} // namespace opd::qt
