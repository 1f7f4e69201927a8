#include "adapters/report/barcode.h"

#include <memory>
#include <stdexcept>
#include <zint.h>

namespace opd::adapters::reporting {

namespace {

constexpr float modulePixels = 4; // fine enough for paper: the bars are enlarged as they stand
constexpr float barHeight = 22;   // in widths of the narrowest bar
constexpr int quietZone = 10;     // likewise; what the standard asks for

} // namespace

Image code128(const std::string& text) {
    const std::unique_ptr<zint_symbol, void (*)(zint_symbol*)> symbol(ZBarcode_Create(), ZBarcode_Delete);
    symbol->symbology = BARCODE_CODE128;
    symbol->show_hrt = 0;
    symbol->scale = modulePixels / 2;
    symbol->height = barHeight;
    symbol->whitespace_width = quietZone;
    const auto* source = reinterpret_cast<const unsigned char*>(text.c_str());
    const int result = ZBarcode_Encode_and_Buffer(symbol.get(), source, static_cast<int>(text.size()), 0);
    if (result >= ZINT_ERROR)
        throw std::runtime_error("\"" + text + "\" cannot be written as a bar code: " + symbol->errtxt + ".");
    Image image{symbol->bitmap_width, symbol->bitmap_height, {}};
    const auto count = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 3;
    image.rgb.assign(symbol->bitmap, symbol->bitmap + count);
    return image;
}

} // namespace opd::adapters::reporting
