#include "adapters/qt/forms.h"
#include "adapters/qt/hands.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/style.h"
#include "adapters/qt/window_shell.h"
#include "adapters/sqlite/create_database.h"
#include "adapters/sqlite/engine/database.h"
#include "adapters/sqlite/provider.h"
#include "base/os/system_clock.h"
#include "codesearch/listing_window.h"
#include "search/master_search.h"
#include "search/search_chief_complaint.h"
#include "tests/adapters/qt/sample_windows.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPaintEvent>
#include <QTableView>
#include <QTimer>

#include <map>
#include <unistd.h>

/// What a clerk waits for at real windows, without a screen: opening the form, a key in a long list, a long answer.
/// OPD_BENCH_MILLION names the folder of a hospital with a million patients that is there already.
namespace opd::bench {

namespace {

const os::SystemClock machineClock;

const ado::Providers& providers() {
    static const ado::Providers& embedded = []() -> ado::Providers& {
        ado::Providers::ofProcess().add("sqlite", adapters::sqlite::makeSqliteProvider(machineClock));
        return ado::Providers::ofProcess();
    }();
    return embedded;
}

/// A hospital in a folder of its own, removed with the process, with as many more rows as an SQL text makes.
class Files {
  public:
    Files(int patients, const std::string& more) {
        m_folder = std::filesystem::temp_directory_path() /
                   ("opd-windows-" + std::to_string(getpid()) + "-" + std::to_string(++made));
        adapters::sqlite::DatabaseOptions options;
        options.patients = patients;
        adapters::sqlite::createDatabase(m_folder, options, {});
        adapters::sqlite::Database(adapters::sqlite::databaseFile(m_folder), adapters::sqlite::Database::Mode::Existing,
                                   machineClock)
            .run(more);
    }
    ~Files() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    std::string folder() const { return m_folder.string(); }

  private:
    static inline int made = 0;
    std::filesystem::path m_folder;
};

std::string folderWith(int patients, const std::string& more) {
    static std::map<std::pair<int, std::string>, std::unique_ptr<Files>> made;
    std::unique_ptr<Files>& files = made[{patients, more}];
    if (!files)
        files = std::make_unique<Files>(patients, more);
    return files->folder();
}

std::string folderOfMillion() {
    const char* const ready = std::getenv("OPD_BENCH_MILLION");
    return ready != nullptr ? ready : folderWith(1'000'000, "");
}

/// So many rows in all in a reference file of three columns, made from those that stand there.
std::string filledUp(const std::string& table, const std::string& name, const std::string& other, int rows) {
    const std::string count = std::to_string(rows);
    const std::string there = "(SELECT count(*) FROM " + table + ")";
    return "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + count + ") INSERT INTO " +
           table + " SELECT 'Z' || i, " + name + " || ' ' || i, " + other + " FROM n JOIN " + table +
           " known ON known.rowid = 1 + i % " + there + " LIMIT " + count + " - " + there;
}

std::string folderWithComplaints(int rows) {
    return folderWith(500, filledUp("Build_File_tbCoChiefComplaint", "ChiefComplaint", "BodySystem", rows));
}

std::string folderWithTowns(int rows) {
    return folderWith(500, filledUp("Build_File_tbCoAddress", "Town", "Province", rows));
}

struct NoReports final : report::Engine {
    std::unique_ptr<report::Report> open(const std::filesystem::path&) const override { return nullptr; }
};
struct NoCamera final : Camera {
    std::optional<Image> takeStill() override { return std::nullopt; }
};
struct NoPictures final : ImageCodec {
    Image decode(const std::string&) const override { return {}; }
    std::string encodeBitmap(const Image&) const override { return {}; }
};
struct NoSettings final : settings::Store {
    std::string get(const std::string&, const std::string&, const std::string&) const override { return {}; }
};
struct NoRegistration final : search::RegistrationOpener {
    search::Opened open(const search::Opening&) override { return search::Opened::Shown; }
};

/// Real windows: runs `work` as soon as a modal window is open, and closes that afterwards; agrees to every question.
class ShownDesktop final : public ui::Desktop {
  public:
    std::function<void(ui::Window&)> work;

    void showModal(ui::Window& window) override {
        QTimer::singleShot(0, [&] {
            qt::hands::settle();
            if (work)
                work(window);
            window.unload();
        });
        m_real.showModal(window);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void show(ui::Window& window) override { m_real.show(window); }
    void waitForWindows() override { m_real.waitForWindows(); }
    ui::Answer ask(const ui::Message& message) override { return ui::answersOf(message.buttons).front(); }
    void beep() override {}
    void setBusy(bool busy) override { m_real.setBusy(busy); }
    bool isBusy() const override { return m_real.isBusy(); }
    qt::QtDesktop& real() { return m_real; }

  private:
    qt::QtDesktop m_real{nullptr};
};

/// The model alone: what the core does, whatever desktop shows it.
class SilentDesktop final : public ui::Desktop {
  public:
    std::function<void(ui::Window&)> work;

    void showModal(ui::Window& window) override {
        View view;
        window.load();
        window.opened(view);
        if (work)
            work(window);
        window.unload();
    }
    void show(ui::Window&) override {}
    void waitForWindows() override {}
    ui::Answer ask(const ui::Message& message) override { return ui::answersOf(message.buttons).front(); }
    void beep() override {}
    void setBusy(bool) override {}
    bool isBusy() const override { return false; }

  private:
    struct View final : ui::WindowView {
        void changed(ui::Control&, ui::Aspect) override {}
        void focusMoved(ui::Control*) override {}
        void closed() override {}
    };
};

/// A clerk's session on the hospital in a folder.
template <class Desktop> struct Place {
    explicit Place(const std::string& folder) {
        globals.gConnection = std::make_shared<ado::Connection>(providers());
        globals.gConnection->Open("Data Source=" + folder);
    }

    Globals globals;
    Desktop desktop;
    NoReports reports;
    NoCamera camera;
    NoPictures pictures;
    NoSettings settings;
    Session session{globals, desktop, machineClock, settings, {}, {reports, camera, pictures, {}}};
};

/// The registration form from the wish to the first picture: its widgets were built while the clerk typed, or are now.
template <bool prepared> void openForm(benchmark::State& state) {
    qt::QtDesktop desktop(nullptr);
    for (auto _ : state) {
        state.PauseTiming();
        if constexpr (prepared)
            desktop.prepareForms();
        state.ResumeTiming();
        qt::samples::RegistrationWindow form;
        desktop.show(form);
        qt::hands::settle();
        state.PauseTiming();
        form.unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        qt::hands::settle();
        state.ResumeTiming();
    }
}
BENCHMARK(openForm<true>)->Name("openForm")->Unit(benchmark::kMillisecond);
BENCHMARK(openForm<false>)->Name("openFormUnprepared")->Unit(benchmark::kMillisecond);

/// The same widgets without models and style sheet.
void openFormBare(benchmark::State& state) {
    for (auto _ : state) {
        auto shell = std::make_unique<QWidget>();
        qt::buildForm("frmRegistration", *shell);
        shell->show();
        qt::hands::settle();
        state.PauseTiming();
        shell.reset();
        qt::hands::settle();
        state.ResumeTiming();
    }
}
BENCHMARK(openFormBare)->Unit(benchmark::kMillisecond);

/// A key in the complaint dialog, for its model alone and with its window.
template <class Desktop> void complaintKey(benchmark::State& state) {
    Place<Desktop> place(folderWithComplaints(static_cast<int>(state.range(0))));
    search::frmSearchChiefComplaint dialog(place.session);
    dialog.SearchMode = "CHIEFCOMPLAINT";
    place.desktop.work = [&](ui::Window& shown) {
        ui::TextBox& box = dialog.fields().txtSearchStr;
        const char* const typed[] = {"A", "AB", "ABD", "AB"};
        std::size_t key = 0;
        for (auto _ : state) {
            shown.edited(box, typed[key++ % std::size(typed)]);
            if constexpr (std::is_same_v<Desktop, ShownDesktop>)
                qt::hands::settle();
        }
        state.counters["rows"] = dialog.fields().grdDispWindow.rowCount();
    };
    dialog.showModal();
}
BENCHMARK(complaintKey<SilentDesktop>)->Arg(1125)->Arg(70000)->Unit(benchmark::kMillisecond);
BENCHMARK(complaintKey<ShownDesktop>)->Arg(1125)->Arg(70000)->Unit(benchmark::kMillisecond);

/// The statement of that key alone.
void complaintStatement(benchmark::State& state) {
    Place<SilentDesktop> place(folderWithComplaints(static_cast<int>(state.range(0))));
    const char* const typed[] = {"A", "AB", "ABD", "AB"};
    std::size_t key = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            place.globals.gConnection->Execute(search::complaintSearch(typed[key++ % std::size(typed)])));
}
BENCHMARK(complaintStatement)->Arg(1125)->Arg(70000)->Unit(benchmark::kMillisecond);

/// The listing of towns from the key that asks for it until it stands there.
template <class Desktop> void openTowns(benchmark::State& state) {
    Place<Desktop> place(folderWithTowns(static_cast<int>(state.range(0))));
    const codesearch::Listing& listing = *codesearch::findListing(0);
    for (auto _ : state) {
        codesearch::ListingWindow window(place.desktop, listing,
                                         codesearch::everyRow(*place.globals.gConnection, listing, ""), "");
        benchmark::DoNotOptimize(window.pick("", ""));
    }
}
BENCHMARK(openTowns<SilentDesktop>)->Arg(50000)->Unit(benchmark::kMillisecond);
BENCHMARK(openTowns<ShownDesktop>)->Arg(50000)->Unit(benchmark::kMillisecond);

/// The statement of that listing alone.
void townsStatement(benchmark::State& state) {
    Place<SilentDesktop> place(folderWithTowns(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(codesearch::everyRow(*place.globals.gConnection, *codesearch::findListing(0), ""));
}
BENCHMARK(townsStatement)->Arg(50000)->Unit(benchmark::kMillisecond);

/// Tells when a widget is painted first.
class FirstPaint final : public QObject {
  public:
    explicit FirstPaint(QWidget& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted = true;
        return false;
    }
    bool painted = false;
};

/// One letter and a sex at a million patients, until the first screen of rows is painted. The whole answer is there
/// when the last row was read too.
template <bool whole> void oneLetter(benchmark::State& state) {
    Place<ShownDesktop> place(folderOfMillion());
    NoRegistration registration;
    search::frmMasterSearch window(place.session, registration);
    place.desktop.work = [&](ui::Window& shown) {
        search::MasterSearchFields& fields = window.fields();
        auto* const table = place.desktop.real().currentShell()->findChild<QTableView*>("gridPatientList");
        for (auto _ : state) {
            state.PauseTiming();
            shown.click(fields.newSearch);
            shown.edited(fields.lastName, "S");
            shown.click(fields.female);
            qt::hands::settle();
            FirstPaint first(*table->viewport());
            state.ResumeTiming();
            shown.click(fields.search);
            while (!first.painted)
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            if constexpr (whole)
                benchmark::DoNotOptimize(fields.gridPatientList.cell(fields.gridPatientList.rowCount(), 3));
        }
        state.counters["rows"] = fields.gridPatientList.rowCount();
    };
    window.showModal();
}
BENCHMARK(oneLetter<false>)->Name("oneLetterFirstScreen")->Unit(benchmark::kMillisecond);
BENCHMARK(oneLetter<true>)->Name("oneLetterWhole")->Unit(benchmark::kMillisecond);

void oneLetterStatement(benchmark::State& state) {
    Place<SilentDesktop> place(folderOfMillion());
    for (auto _ : state)
        benchmark::DoNotOptimize(place.globals.gConnection->Execute(search::nameSearch("S", "F", "")).RecordCount());
}
BENCHMARK(oneLetterStatement)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace opd::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen").toUtf8());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    opd::qt::dress(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
