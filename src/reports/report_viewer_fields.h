#pragma once

#include "ui/report_pane.h"
#include "ui/window.h"

namespace opd::reports {

/// The controls of the report viewer, in tab order.
struct ReportViewerFields {
    explicit ReportViewerFields(ui::Container& form) : window(form) {
        struct Sign {
            ui::Button& button;
            ui::Literal name;
            const char* key;
        };
        const Sign signs[] = {{cmdFirstPage, "First page", " (Home)"},
                              {cmdPreviousPage, "Previous page", " (Page Up)"},
                              {cmdNextPage, "Next page", " (Page Down)"},
                              {cmdLastPage, "Last page", " (End)"},
                              {cmdZoomOut, "Smaller", " (-)"},
                              {cmdZoomIn, "Larger", " (+)"},
                              {cmdShow, "Toolbar", ": put away or brought back"}};
        for (const Sign& sign : signs) {
            sign.button.spokenName = sign.name;
            sign.button.tip.set(std::string{sign.name} + sign.key);
        }
        CRViewer1.spokenName = "Report";
    }

    ui::Container& window;
    ui::Frame Toolbar1{window, "Toolbar1", ""};
    ui::Button cmdPrint{Toolbar1, "cmdPrint", "PRINT"};
    ui::Button cmdSavePdf{Toolbar1, "cmdSavePdf", "&Save as PDF"};
    ui::Button cmdFirstPage{Toolbar1, "cmdFirstPage", "|<"};
    ui::Button cmdPreviousPage{Toolbar1, "cmdPreviousPage", "<"};
    ui::Label lblPage{Toolbar1, "lblPage", ""};
    ui::Button cmdNextPage{Toolbar1, "cmdNextPage", ">"};
    ui::Button cmdLastPage{Toolbar1, "cmdLastPage", ">|"};
    ui::Button cmdZoomOut{Toolbar1, "cmdZoomOut", "-"};
    ui::Button cmdZoomIn{Toolbar1, "cmdZoomIn", "+"};
    ui::Button cmdPageWidth{Toolbar1, "cmdPageWidth", "Page &Width"};
    ui::Button cmdWholePage{Toolbar1, "cmdWholePage", "W&hole Page"};
    ui::Button cmdClose{Toolbar1, "cmdClose", "&Close"};
    ui::Button cmdShow{window, "cmdShow", "<<"};
    ui::ReportPane CRViewer1{window, "CRViewer1"};
};

} // namespace opd::reports
