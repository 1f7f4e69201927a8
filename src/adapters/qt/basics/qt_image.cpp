#include "adapters/qt/basics/qt_image.h"

namespace opd::qt {

namespace {

constexpr int bytesPerPixel = 3;

} // namespace

QImage toQt(const Image& image) {
    return QImage(image.rgb.data(), image.width, image.height, qsizetype{bytesPerPixel} * image.width,
                  QImage::Format_RGB888)
        .copy();
}

Image fromQt(const QImage& image) {
    const QImage source = image.convertToFormat(QImage::Format_RGB888);
    const auto rowSize = static_cast<std::size_t>(source.width()) * bytesPerPixel; // the toolkit pads its rows
    Image result{source.width(), source.height(), {}};
    result.rgb.reserve(rowSize * static_cast<std::size_t>(source.height()));
    for (int row = 0; row < source.height(); ++row)
        result.rgb.insert(result.rgb.end(), source.constScanLine(row), source.constScanLine(row) + rowSize);
    return result;
}

} // namespace opd::qt
