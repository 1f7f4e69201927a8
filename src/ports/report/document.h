#pragma once

#include "ports/image/image.h"

#include <map>
#include <string>
#include <vector>

namespace opd::report {

/// The empty edge around the content of a page, in millimetres.
struct Margins {
    double left = 15;
    double top = 15;
    double right = 15;
    double bottom = 15;
};

/// A sheet of paper as it lies in the printer, in millimetres. The default is A4.
struct Paper {
    double width = 210;
    double height = 297;
};

/// A report with its data in it, ready to be laid out on its pages. The texts are well-formed markup with the elements
/// of simple HTML; an image is named by the source of its element.
struct Document {
    std::string title;
    Paper paper;
    Margins margins;
    bool shrinksToFit = false; ///< becomes smaller, within reason, where it would need more than one page
    std::string style;         ///< style sheet of all texts
    std::string body;
    std::string head; ///< at the top of every page but the first; "{page}" and "{pages}" stand for the numbers
    std::string foot; ///< at the bottom of every page
    std::map<std::string, SharedImage> images;
    std::vector<std::string> groups; ///< the headings of its parts, in their order

    /// What one reads in the body, line by line.
    std::string text;
};

} // namespace opd::report
