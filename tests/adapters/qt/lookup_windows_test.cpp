#include "tests/adapters/qt/desk.h"

#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

namespace opd::qt {
namespace {

using SearchDialogDesk = Desk<samples::SearchDialog>;
using PickListDesk = Desk<samples::PickList>;
using ListingDesk = Desk<samples::ListingWindow>;

/// The names of the controls that the focus visits on its way round a window, starting where it is; each must stand
/// below the one before it, or to the right of it in the same line.
template <class Form> std::string readingOrder(Desk<Form>& desk) {
    const ui::Control* const first = desk.form.focus();
    std::string order;
    QPoint last(-1, -1);
    do {
        const QWidget* widget = desk.shell().viewOf(*desk.form.focus())->widget();
        const QPoint center = widget->mapTo(&desk.shell(), widget->rect().center());
        const bool sameLine = std::abs(center.y() - last.y()) < 12;
        EXPECT_TRUE(sameLine ? center.x() > last.x() : center.y() > last.y()) << desk.form.focus()->name();
        EXPECT_TRUE(desk.hands.hasFocus(*desk.form.focus()));
        order += desk.form.focus()->name() + " ";
        last = center;
        desk.press("Tab");
    } while (desk.form.focus() != first && order.size() < 200);
    return order;
}

TEST(QtLookups, TabGoesFromTheSearchBoxThroughTheListToTheButtons) {
    SearchDialogDesk dialog;
    EXPECT_EQ(readingOrder(dialog), "txtSearchStr grdDispWindow cmdSelect cmdCancel ");
    PickListDesk pickList;
    EXPECT_EQ(readingOrder(pickList), "grdMain cmdOK cmdCancel ");
    ListingDesk listing;
    EXPECT_EQ(readingOrder(listing), "txtSearch grdListing cmdSelect cmdCancel ");
}

TEST(QtLookups, TheDoctorsColumnsAreSeenWithoutScrolling) {
    PickListDesk desk;
    desk.form.grdMain.show(
        ui::gridColumns("<Dumm|<Name of Doctor|>Code|<Specialization1|<Specialization 2", {0, 4000, 1000, 2500, 2500}),
        {{"", "REYES, ANTONIO", "0012", "PEDIATRICS", "NEONATOLOGY"}});
    hands::settle();
    EXPECT_EQ(desk.widget<QTableView>("grdMain")->horizontalScrollBar()->maximum(), 0);
}

TEST(QtLookups, ADialogOpensOverTheMiddleOfTheWindowItServesAndNeverOffTheScreen) {
    ListingDesk desk;
    desk.shell().setGeometry(20, 30, 640, 540);
    const auto placeOf = [&](ui::Window& dialog) {
        QRect place;
        QTimer::singleShot(20, qApp, [&] {
            place = desk.desktop.currentShell()->frameGeometry();
            dialog.unload();
        });
        desk.desktop.showModal(dialog);
        return place;
    };
    samples::SearchDialog dialog;
    const QPoint off = placeOf(dialog).center() - desk.shell().frameGeometry().center();
    EXPECT_LE(off.manhattanLength(), 12);
    desk.shell().move(-400, 500);
    const QRect place = placeOf(dialog);
    EXPECT_TRUE(desk.shell().screen()->availableGeometry().contains(place));
    EXPECT_EQ(place.left(), 0);
}

TEST(QtLookups, TheTitlePictureTakesTurnsAndAPhotographsPlaceStaysEmpty) {
    SearchDialogDesk desk;
    auto* label = desk.widget<QLabel>("imgTitle");
    const QImage first = label->pixmap(Qt::ReturnByValue).toImage();
    desk.form.imgTitle.setFrame(1);
    const QImage second = label->pixmap(Qt::ReturnByValue).toImage();
    EXPECT_FALSE(first.isNull());
    EXPECT_NE(first, second);
    desk.form.imgTitle.setFrame(2);
    EXPECT_EQ(label->pixmap(Qt::ReturnByValue).toImage(), first);
    RegistrationDesk registration;
    registration.form.additional.picPatient.setFrame(1);
    EXPECT_TRUE(registration.widget<QLabel>("picPatient")->pixmap(Qt::ReturnByValue).isNull());
}

} // namespace
} // namespace opd::qt
