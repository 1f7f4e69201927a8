#include "adapters/report/engine.h"

extern "C" opd::report::Engine* opdCreateReportEngine(const opd::adapters::ReportSurroundings& surroundings) {
    return std::make_unique<opd::adapters::ReportEngine>(surroundings).release();
}
