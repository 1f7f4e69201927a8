#include "adapters/report/barcode.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace opd::tests {
namespace {

/// The widths of bars and spaces of every symbol, as the standard lists them; the last one is the stop.
constexpr std::array<std::string_view, 107> patterns{
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212", "221213", "221312",
    "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211", "221132", "221231", "213212",
    "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211", "212123", "212321", "232121",
    "111323", "131123", "131321", "112313", "132113", "132311", "211313", "231113", "231311", "112133", "112331",
    "132131", "113123", "113321", "133121", "313121", "211331", "231131", "213113", "213311", "213131", "311123",
    "311321", "331121", "312113", "312311", "332111", "314111", "221411", "431111", "111224", "111422", "121124",
    "121421", "141122", "141221", "112214", "112412", "122114", "122411", "142112", "142211", "241211", "221114",
    "413111", "241112", "134111", "111242", "121142", "121241", "114212", "124112", "124211", "411212", "421112",
    "421211", "212141", "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311",
    "113141", "114131", "311141", "411131", "211412", "211214", "211232", "2331112"};
constexpr int toSetC = 99, toSetB = 100, startB = 104, startC = 105, stop = 106;

/// How wide the bars and spaces of an image are, in widths of the narrowest, the empty zones at both ends included.
std::vector<int> widthsOf(const Image& image) {
    const auto isDark = [&](int x) {
        return image.rgb.at(3 * (static_cast<std::size_t>(image.height / 2) * static_cast<std::size_t>(image.width) +
                                 static_cast<std::size_t>(x))) < 128;
    };
    std::vector<int> widths{0};
    for (int x = 0; x < image.width; ++x) {
        if (x > 0 && isDark(x) != isDark(x - 1))
            widths.push_back(0);
        ++widths.back();
    }
    const int narrowest = *std::min_element(widths.begin(), widths.end());
    for (int& width : widths)
        width /= narrowest;
    return widths;
}

std::vector<int> symbolsOf(const std::vector<int>& widths) {
    std::vector<int> symbols;
    std::string bars;
    for (std::size_t i = 1; i + 1 < widths.size(); ++i) {
        bars += std::to_string(widths[i]);
        const auto* const found = std::find(patterns.begin(), patterns.end(), bars);
        if (found == patterns.end())
            continue;
        symbols.push_back(static_cast<int>(found - patterns.begin()));
        bars.clear();
    }
    EXPECT_EQ(bars, "") << "bars that are no symbol";
    return symbols;
}

std::string textOf(const std::vector<int>& symbols) {
    std::string text;
    bool inPairs = symbols.at(0) == startC;
    for (std::size_t i = 1; i + 2 < symbols.size(); ++i) {
        const int symbol = symbols[i];
        if (symbol == (inPairs ? toSetB : toSetC))
            inPairs = !inPairs;
        else if (inPairs)
            text += std::to_string(100 + symbol).substr(1);
        else
            text += static_cast<char>(' ' + symbol);
    }
    return text;
}

TEST(BarCode, EveryTextStandsInItsCodeSetWithItsCheckDigitBetweenEmptyZones) {
    struct Case {
        const char* text;
        int start;
        std::size_t symbols; ///< start, check and stop included: digits in pairs keep a number short
        int check;           ///< -1: computed alone
    };
    for (const auto& [text, start, count, check] : std::initializer_list<Case>{{"00000012", startC, 7, 50},
                                                                               {"00000201", startC, 7, 12},
                                                                               {"99999999", startC, 7, 65},
                                                                               {"1234567", startC, 8, -1},
                                                                               {"2600000001B", startC, 10, -1},
                                                                               {"AB-7", startB, 7, -1},
                                                                               {"A00000012", startB, 9, -1}}) {
        SCOPED_TRACE(text);
        const std::vector<int> widths = widthsOf(adapters::reporting::code128(text));
        EXPECT_GE(widths.front(), 10);
        EXPECT_GE(widths.back(), 10);
        const std::vector<int> symbols = symbolsOf(widths);
        ASSERT_EQ(symbols.size(), count);
        EXPECT_EQ(symbols.front(), start);
        EXPECT_EQ(symbols.back(), stop);
        EXPECT_EQ(textOf(symbols), text);
        int sum = symbols.front();
        for (std::size_t i = 1; i + 2 < symbols.size(); ++i)
            sum += static_cast<int>(i) * symbols[i];
        EXPECT_EQ(symbols[symbols.size() - 2], sum % 103);
        EXPECT_TRUE(check < 0 || check == sum % 103) << sum % 103;
    }
    EXPECT_THROW(adapters::reporting::code128(""), std::runtime_error);
}

} // namespace
} // namespace opd::tests
