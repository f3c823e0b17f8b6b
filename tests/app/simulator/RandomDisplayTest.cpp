#include "simulator/RenderDisplay.h"

#include <algorithm>
#include <array>
#include <climits>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace orvim {
namespace {

/// States that no user can make: every field takes any value of its type, the odd ones more often than the others.
class RandomFields
{
public:
    DisplayFields next()
    {
        DisplayFields fields;
        fields.displayType = static_cast<DisplaySimulatorType>(below(9));
        fields.colorMode = static_cast<DisplaySimulatorColorMode>(below(7));
        fields.subDisplay = static_cast<DisplaySimulatorSubDisplay>(below(5));
        fields.specialMode = static_cast<DisplaySimulatorSpecialMode>(below(3) == 0 ? below(256) : 0);
        if (below(4) == 0) fields.specialMode = static_cast<DisplaySimulatorSpecialMode>(below(5));
        fields.errorKind = static_cast<DisplaySimulatorErrorKind>(below(6));
        for (auto* color : {&fields.foregroundRGB, &fields.backgroundRGB, &fields.baseRGB, &fields.oscilloscopeWaveRGB,
                            &fields.oscilloscopeUntriggeredRGB})
            *color = number();
        for (auto* value : {&fields.leftLevel, &fields.rightLevel, &fields.voiceCount, &fields.knobValue,
                            &fields.eyebrow, &fields.eye, &fields.steadyEye, &fields.mouth, &fields.blinkState})
            *value = number();
        for (auto* text : {&fields.asciiText, &fields.japaneseUpper, &fields.japaneseLower})
            *text = anyText();
        for (auto* flag : {&fields.isJapaneseMode, &fields.showsUSB, &fields.isOscilloscopeTriggered})
            *flag = below(2) == 0;
        for (auto& row : fields.dotValues)
            for (auto& dot : row)
                dot = below(2) == 0;
        fields.arbitraryImageRGB.resize(below(2) == 0 ? arbitraryImageByteCount : below(20'000), 0x5A);
        fields.performanceMonitor.parts.resize(below(3) == 0 ? below(40) : 16);
        for (auto& part : fields.performanceMonitor.parts) {
            part.name = anyText();
            part.isUserBank = below(2) == 0;
        }
        return fields;
    }

private:
    unsigned below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(m_source); }

    int number()
    {
        constexpr std::array<int, 8> odd{INT_MIN, INT_MIN + 1, -1, 0, 1, 63, INT_MAX - 1, INT_MAX};
        const auto choice = below(16);
        return choice < odd.size() ? odd[choice] : static_cast<int>(below(80));
    }

    std::string anyText()
    {
        constexpr std::array<const char*, 9> pieces{"A", "~", "あ", "ｱ", "😀", "\n", "\x7F", "\xE3\x81", "\uE000"};
        const bool isHuge = below(200) == 0;
        std::string text;
        for (auto length = below(isHuge ? 20'000 : 70); length > 0; --length)
            text += below(8) == 0 ? std::string(1, static_cast<char>(below(256))) : pieces[below(pieces.size())];
        return text;
    }

    std::mt19937 m_source{20260711};
};

bool isOpaque(const DisplayCanvas& canvas)
{
    const auto bytes = canvas.bytes();
    for (std::size_t i = 3; i < bytes.size(); i += 4)
        if (bytes[i] != 0xFF) return false;
    return true;
}

TEST(RandomDisplay, AnyStatePaintsEveryPixelAndNothingOutside)
{
    RandomFields random;
    for (int i = 0; i < 400; ++i) {
        const auto fields = random.next();
        DisplayCanvas canvas;
        renderDisplay(fields, canvas);
        ASSERT_TRUE(isOpaque(canvas)) << "state " << i;
    }
}

TEST(RandomDisplay, ThePictureDependsOnTheStateAloneAndNotOnWhatTheCanvasHeld)
{
    RandomFields random;
    DisplayCanvas used;
    for (int i = 0; i < 100; ++i) {
        const auto fields = random.next();
        DisplayCanvas fresh;
        renderDisplay(fields, fresh);
        renderDisplay(fields, used);
        ASSERT_TRUE(std::ranges::equal(fresh.bytes(), used.bytes())) << "state " << i;
    }
}

} // namespace
} // namespace orvim
