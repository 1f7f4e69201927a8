#include "adapters/qt/forms.h"

#include "ui_frmChangedMeanwhile.h"
#include "ui_frmCodeSearch.h"
#include "ui_frmKeyCard.h"
#include "ui_frmMasterSearch.h"
#include "ui_frmPickList.h"
#include "ui_frmRegistration.h"
#include "ui_frmReportViewer.h"
#include "ui_frmSearchNew.h"
#include "ui_frmTodaysVisits.h"
#include "ui_frmWebCamCapture.h"

#include <map>

namespace opd::qt {

namespace {

template <class Form> void build(QWidget& shell) {
    Form().setupUi(&shell);
}

} // namespace

bool buildForm(const std::string& windowName, QWidget& shell) {
    static const std::map<std::string, void (*)(QWidget&)> forms{
        {"frmChangedMeanwhile", build<Ui::frmChangedMeanwhile>},
        {"frmCodeSearch", build<Ui::frmCodeSearch>},
        {"frmKeyCard", build<Ui::frmKeyCard>},
        {"frmMasterSearch", build<Ui::frmMasterSearch>},
        {"frmPickList", build<Ui::frmPickList>},
        {"frmRegistration", build<Ui::frmRegistration>},
        {"frmReportViewer", build<Ui::frmReportViewer>},
        {"frmSearchChiefComplaint", build<Ui::frmSearchNew>}, // both search dialogs have the same controls
        {"frmSearchNew", build<Ui::frmSearchNew>},
        {"frmTodaysVisits", build<Ui::frmTodaysVisits>},
        {"frmWebCamCapture", build<Ui::frmWebCamCapture>},
    };
    const auto form = forms.find(windowName);
    if (form == forms.end())
        return false;
    form->second(shell);
    return true;
}

} // namespace opd::qt
