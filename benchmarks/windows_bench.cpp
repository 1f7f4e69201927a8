#include "pair.h"
#include "workplace.h"

#include "adapters/qt/forms.h"
#include "adapters/qt/hands.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/style.h"
#include "adapters/qt/window_shell.h"
#include "registration/registration_form.h"
#include "search/master_search.h"

#include <QApplication>
#include <QPaintEvent>
#include <QTableView>
#include <QTimer>

#include <chrono>
#include <iostream>

/// What a clerk waits for at real windows that are drawn without a screen; `./bench` starts it. With OPD_BENCH_BARE it
/// builds the widgets alone, in a process of their own: the look is the whole application's.
namespace opd::bench {

namespace {

using Moment = std::chrono::steady_clock::time_point;

double secondsSince(Moment begun) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

/// Reports what each turn answers as the module's figure.
void measureTurns(benchmark::State& state, const std::function<double()>& turn) {
    std::vector<double> seconds;
    for (auto _ : state) {
        seconds.push_back(turn());
        state.SetIterationTime(seconds.back());
    }
    std::sort(seconds.begin(), seconds.end());
    state.counters["module_p50"] = seconds[seconds.size() / 2] * 1e6;
    state.counters["module_p99"] = seconds[(seconds.size() - 1) * 99 / 100] * 1e6;
}

void sweep() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    qt::hands::settle();
}

/// The form of a new patient from nothing to the first picture: statements, models, widgets.
void openForm(benchmark::State& state, const std::string& name) {
    qt::QtDesktop desktop(nullptr);
    Workplace place(hospital(name), desktop);
    measureTurns(state, [&] {
        desktop.prepareForms(); // as it does while a clerk looks at the search
        const Moment begun = std::chrono::steady_clock::now();
        registration::RegistrationForm form(place.session(), {"NEW", "NEW", "(TO BE GENERATED)"});
        form.SetRegistrationMode();
        desktop.show(form.window());
        qt::hands::settle();
        const double taken = secondsSince(begun);
        form.window().unload();
        sweep();
        return taken;
    });
}

/// The same widgets with nothing behind them.
void openWidgets(benchmark::State& state, const std::string&) {
    measureTurns(state, [] {
        const Moment begun = std::chrono::steady_clock::now();
        auto shell = std::make_unique<QWidget>();
        qt::buildForm("frmRegistration", *shell);
        shell->show();
        qt::hands::settle();
        const double taken = secondsSince(begun);
        shell.reset();
        sweep();
        return taken;
    });
}

/// Real windows: what is shown modally is used as soon as it is open, and closed afterwards; every question is agreed
/// to.
class ShownDesktop final : public ui::Desktop {
  public:
    std::function<void(ui::Window&)> work;

    void showModal(ui::Window& window) override {
        QTimer::singleShot(0, [&] {
            qt::hands::settle();
            work(window);
            window.unload();
        });
        m_real.showModal(window);
        sweep();
    }
    void show(ui::Window& window) override { m_real.show(window); }
    void waitForWindows() override { m_real.waitForWindows(); }
    ui::Answer ask(const ui::Message& message) override { return ui::answersOf(message.buttons).front(); }
    void beep() override {}
    void setBusy(bool busy) override { m_real.setBusy(busy); }
    bool isBusy() const override { return m_real.isBusy(); }
    bool showWaiting(std::chrono::milliseconds lasted, bool mayBeGivenUp) override {
        return m_real.showWaiting(lasted, mayBeGivenUp);
    }
    void endWaiting() override { m_real.endWaiting(); }
    qt::QtDesktop& real() { return m_real; }

  private:
    qt::QtDesktop m_real{nullptr};
};

struct NoRegistration final : search::RegistrationOpener {
    search::Opened open(const search::Opening&) override { return search::Opened::Shown; }
};

struct NoVisits final : search::VisitsOpener {
    void showTodaysVisits() override {}
};

/// Tells when a widget is painted first.
class FirstPaint final : public QObject {
  public:
    explicit FirstPaint(QWidget& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
    bool painted = false;
};

/// From the click on "Search" until the list is painted, for one letter and a sex.
void firstScreen(benchmark::State& state, const std::string& name) {
    ShownDesktop desktop;
    Workplace place(hospital(name), desktop);
    NoRegistration registration;
    NoVisits visits;
    search::frmMasterSearch window(place.session(), registration, visits);
    desktop.work = [&](ui::Window& shown) {
        search::MasterSearchFields& fields = window.fields();
        auto* const table = desktop.real().currentShell()->findChild<QTableView*>("gridPatientList");
        measureTurns(state, [&] {
            shown.click(fields.newSearch);
            shown.edited(fields.lastName, "R");
            shown.click(fields.female);
            qt::hands::settle();
            FirstPaint first(*table->viewport());
            const Moment begun = std::chrono::steady_clock::now();
            shown.click(fields.search);
            while (!first.painted)
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            return secondsSince(begun);
        });
        state.counters["rows"] = fields.gridPatientList.rowCount();
    };
    window.showModal();
}

} // namespace

} // namespace opd::bench

int main(int argc, char** argv) {
    using namespace opd;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        benchmark::Initialize(&argc, argv);
        if (std::getenv("OPD_BENCH_BARE") != nullptr) {
            bench::add("form-opening", {"bare"}, bench::openWidgets, {.turns = 40});
        } else {
            qt::dressApplication();
            bench::add("form-opening", {"10000"}, bench::openForm, {.turns = 40});
            bench::add("first-screen", bench::sizes(), bench::firstScreen, {.turns = 15});
        }
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& failure) {
        std::cerr << "opd-bench-windows: " << failure.what() << "\n";
        return 1;
    }
    return 0;
}
