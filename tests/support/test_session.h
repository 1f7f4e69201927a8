#pragma once

#include "support/recording_provider.h"
#include "support/test_desktop.h"

#include "session/session.h"

#include <map>
#include <string>
#include <vector>

namespace opd::tests {

/// Settings in memory: a text is found under its application, section and key, and nowhere else.
class MemoryStore final : public settings::Store {
  public:
    std::map<std::vector<std::string>, std::string> values; ///< by application, section and key

    /// Sets a text of the module's own application.
    void set(const std::string& section, const std::string& key, const std::string& text) {
        values[{"QUORIN Current User", section, key}] = text;
    }
    std::string get(const std::string& application, const std::string& section, const std::string& key) const override {
        const auto found = values.find({application, section, key});
        return found == values.end() ? std::string{} : found->second;
    }
};

/// A report that shows what it was given.
class StandInReport final : public report::Report {
  public:
    StandInReport() {
        tables = {{"visit"}, {"patient"}};
        parameterFields = {{"Visit"}, {"Name"}, {"Address"}};
    }
    explicit StandInReport(std::string failure) : StandInReport() { m_failure = std::move(failure); }
    report::Document document() const override {
        if (!m_failure.empty())
            throw ado::Error(m_failure);
        report::Document document;
        document.text = parameterFields[0].value;
        document.groups = {parameterFields[1].value, parameterFields[2].value};
        return document;
    }

  private:
    std::string m_failure;
};

/// Opens any file as the stand-in report, and remembers which.
struct StandInEngine final : report::Engine {
    mutable std::filesystem::path opened;
    std::string failure; ///< of reading the data, when not empty
    std::unique_ptr<report::Report> open(const std::filesystem::path& file) const override {
        opened = file;
        return std::make_unique<StandInReport>(failure);
    }
};

/// A camera that gives the same frame every time, or none.
struct StandInCamera final : Camera {
    std::optional<Image> frame;
    std::optional<Image> takeStill() override { return frame; }
};

/// Pictures that are one byte a pixel in their files.
struct StandInCodec final : ImageCodec {
    Image decode(const std::string& content) const override {
        return {static_cast<int>(content.size()), 1, std::vector<std::uint8_t>(content.size() * 3)};
    }
    std::string encodeBitmap(const Image& image) const override {
        return std::string(static_cast<std::size_t>(image.width * image.height), '#');
    }
};

/// Choices in memory.
struct MemoryOfPrints final : report::PrintMemory {
    std::map<std::string, report::PrintChoice> choices;
    report::PrintChoice choiceFor(const std::string& kind) const override {
        const auto found = choices.find(kind);
        return found == choices.end() ? report::PrintChoice{} : found->second;
    }
    void keep(const std::string& kind, const report::PrintChoice& choice) override { choices[kind] = choice; }
};

/// A session without a database yet, with the clock standing at 24 November 2026, 14:05.
struct Workplace {
    Workplace() {
        globals.gServerDate = clock.moment;
        globals.gUserID = "CLERK";
    }

    ado::Providers providers;
    Globals globals;
    TestDesktop desktop;
    FixedClock clock{{2026, 11, 24, 14, 5, 0}};
    MemoryStore store;
    StandInEngine reports;
    StandInCamera camera;
    StandInCodec images;
    MemoryOfPrints prints;
    Session session{globals, desktop, clock, store, {}, {reports, camera, images, prints, "module"}};
};

/// A session on a recording database.
struct TestSession : Workplace {
    TestSession() {
        providers.add("recording", provider);
        globals.gConnection = std::make_shared<ado::Connection>(providers);
        globals.gConnection->Open("Data Source=recording");
    }

    std::shared_ptr<RecordingProvider> provider = std::make_shared<RecordingProvider>();
};

} // namespace opd::tests
