#pragma once

#include "ports/image/image.h"

#include <QImage>

namespace opd::qt {

/// A picture of the core as the toolkit's, and back.
QImage toQt(const Image& image);
Image fromQt(const QImage& image);

} // namespace opd::qt
