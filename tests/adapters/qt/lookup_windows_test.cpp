#include "tests/adapters/qt/desk.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

namespace opd::qt {
namespace {

TEST(QtLookups, TheDoctorsColumnsAreSeenWithoutScrolling) {
    Desk<samples::PickList> desk;
    desk.form.grdMain.show(
        ui::gridColumns("<Dumm|<Name of Doctor|>Code|<Specialization1|<Specialization 2", {0, 4000, 1000, 2500, 2500}),
        {{"", "REYES, ANTONIO", "0012", "PEDIATRICS", "NEONATOLOGY"}});
    hands::settle();
    EXPECT_EQ(desk.widget<QTableView>("grdMain")->horizontalScrollBar()->maximum(), 0);
}

TEST(QtLookups, ADialogOpensOverTheMiddleOfTheWindowItServesAndNeverOffTheScreen) {
    Desk<samples::ListingWindow> desk;
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
    Desk<samples::SearchDialog> desk;
    const auto shown = [&](int frame) {
        desk.form.imgTitle.setFrame(frame);
        return desk.widget<QLabel>("imgTitle")->pixmap(Qt::ReturnByValue).toImage();
    };
    EXPECT_FALSE(shown(0).isNull());
    EXPECT_NE(shown(0), shown(1));
    EXPECT_EQ(shown(0), shown(2));
    RegistrationDesk registration;
    registration.form.additional.picPatient.setFrame(1);
    EXPECT_TRUE(registration.widget<QLabel>("picPatient")->pixmap(Qt::ReturnByValue).isNull());
}

} // namespace
} // namespace opd::qt
