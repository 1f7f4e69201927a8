#include "adapters/qt/forms.h"

#include "ui_frmMasterSearch.h"
#include "ui_frmRegistration.h"

#include <map>

namespace opd::qt {

namespace {

template <class Form> void build(QWidget& shell) {
    Form().setupUi(&shell);
}

} // namespace

bool buildForm(const std::string& windowName, QWidget& shell) {
    static const std::map<std::string, void (*)(QWidget&)> forms{
        {"frmMasterSearch", build<Ui::frmMasterSearch>},
        {"frmRegistration", build<Ui::frmRegistration>},
    };
    const auto form = forms.find(windowName);
    if (form == forms.end())
        return false;
    form->second(shell);
    return true;
}

} // namespace opd::qt
