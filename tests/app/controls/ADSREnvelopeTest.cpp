#include "controls/ADSREnvelope.h"

#include "controls/ADSRGraphView.h"

#include <gmock/gmock.h>

namespace orvim {

void PrintTo(const EnvelopePoint& point, std::ostream* out)
{
    *out << "(" << point.time << ", " << point.level << ")";
}

namespace {

using testing::ElementsAre;

std::vector<EnvelopePoint> points(const ADSRParameters& parameters)
{
    return ADSREnvelope::points(parameters);
}

/// The curve by taking each time unit in turn, as the module does.
std::vector<EnvelopePoint> pointsByCounting(const ADSRParameters& p)
{
    const int end = p.releaseActive ? 96'000 : 192'000;
    std::vector<EnvelopePoint> result{{0, 0}};
    const int rise = (2 * p.attack + 1) * 120;
    int time = 1;
    while (255 * (time - 1) / rise <= 254)
        ++time;
    result.push_back({time, 255});
    const int fall = (2 * p.decay + 1) * 120;
    const int foot = 2 * p.sustainLevel;
    int level = 255;
    for (int step = 0;; ++step) {
        level = 255 - step * (255 - foot) / fall;
        ++time;
        if (level <= foot) break;
    }
    result.push_back({time, level});
    if (p.sustainRate == 0) {
        time = end;
    } else {
        const int period = 15'360 / (2 * p.sustainRate);
        while (level > 0 && time + period <= end) {
            time += period;
            --level;
        }
        if (level > 0) time = end;
    }
    result.push_back({time, level});
    const int unit = p.release == 0 ? 1 : 4 * p.release;
    while (level > 0 && time + unit <= 192'000) {
        time += unit;
        --level;
    }
    if (level > 0) time = 192'000;
    result.push_back({time, level});
    result.push_back({192'000, 0});
    return result;
}

TEST(ADSREnvelope, AllZerosRiseUntil121FallAtOnceAndEndOnTheBaseLine)
{
    const auto curve = points({.releaseActive = true});
    ASSERT_EQ(curve.size(), 6U);
    EXPECT_EQ(curve[0], (EnvelopePoint{0, 0}));
    EXPECT_EQ(curve[1], (EnvelopePoint{121, 255}));
    EXPECT_EQ(curve[2], (EnvelopePoint{242, 0}));
    EXPECT_EQ(curve.back(), (EnvelopePoint{192'000, 0}));
}

TEST(ADSREnvelope, SustainLevel127LeavesTheDecayOneStepOfLevel)
{
    const auto curve = points({.sustainLevel = 127, .releaseActive = true});
    EXPECT_THAT(curve, ElementsAre(EnvelopePoint{0, 0}, EnvelopePoint{121, 255}, EnvelopePoint{242, 254},
                                   EnvelopePoint{96'000, 254}, EnvelopePoint{96'254, 0}, EnvelopePoint{192'000, 0}));
}

TEST(ADSREnvelope, WithoutReleaseTheNoteLastsToTheEndOfTheGraph)
{
    const auto curve = points({.sustainLevel = 100, .release = 5, .releaseActive = false});
    EXPECT_EQ(curve[3], (EnvelopePoint{192'000, 200}));
    EXPECT_EQ(curve[4], (EnvelopePoint{192'000, 200}));
    EXPECT_EQ(curve.back(), (EnvelopePoint{192'000, 0}));
}

TEST(ADSREnvelope, ASustainRateTakesOneLevelAPeriod)
{
    // 15,360 / (2 * 64) is 120 units a level: 200 levels last 24,000 units.
    const auto curve = points({.sustainLevel = 100, .sustainRate = 64});
    EXPECT_EQ(curve[3], (EnvelopePoint{242 + 24'000, 0}));
}

TEST(ADSREnvelope, AStepDueExactlyAtTheNotesEndIsTaken)
{
    // The decay ends at 121 + 37 * 120 + 1; from there 131 periods of 698 units end at 96,000.
    const auto curve = points({.decay = 18, .sustainLevel = 127, .sustainRate = 11, .releaseActive = true});
    EXPECT_EQ(curve[2], (EnvelopePoint{4'562, 254}));
    EXPECT_EQ(curve[3], (EnvelopePoint{96'000, 254 - 131}));
}

TEST(ADSREnvelope, AStepOfTheReleaseDueExactlyAtTheEndOfTheGraphIsTaken)
{
    // 192 steps of 500 units.
    const auto curve = points({.sustainLevel = 127, .release = 125});
    EXPECT_EQ(curve[4], (EnvelopePoint{192'000, 254 - 192}));
}

TEST(ADSREnvelope, ASustainOfAFastRateEndsBeforeTheNote)
{
    const auto fastest = points({.sustainLevel = 127, .sustainRate = 7'680, .releaseActive = true});
    EXPECT_EQ(fastest[3], (EnvelopePoint{242 + 254, 0}));
    const auto slower = points({.sustainLevel = 127, .sustainRate = 80, .releaseActive = true});
    EXPECT_EQ(slower[3], (EnvelopePoint{242 + 254 * 96, 0}));
}

TEST(ADSREnvelope, AReleaseTakesFourTimesItsSettingALevel)
{
    const auto curve = points({.sustainLevel = 127, .release = 10});
    EXPECT_EQ(curve[4], (EnvelopePoint{96'000 + 254 * 40, 0}));
    const auto slow = points({.sustainLevel = 127, .release = 127});
    // 96,000 / 508 is 188: so many levels are gone at the end of the graph.
    EXPECT_EQ(slow[4], (EnvelopePoint{192'000, 254 - 188}));
}

TEST(ADSREnvelope, AnAttackBeyondTheNoteEndsWithIt)
{
    const auto curve = points({.attack = 100'000, .sustainLevel = 50, .releaseActive = true});
    EXPECT_EQ(curve[1], (EnvelopePoint{96'000, 255}));
    EXPECT_EQ(curve[2], (EnvelopePoint{96'000, 255}));
    EXPECT_EQ(curve[3], (EnvelopePoint{96'000, 255}));
    EXPECT_EQ(curve[4], (EnvelopePoint{96'255, 0}));
}

TEST(ADSREnvelope, ADecayBeyondTheNoteStopsAtTheLevelOfItsLastStep)
{
    // 401 * 120 units of decay fit, 2,001 * 120 do not: 95,878 of 240,120 steps towards 0.
    const auto curve = points({.decay = 1'000, .releaseActive = true});
    EXPECT_EQ(curve[2], (EnvelopePoint{96'000, 255 - 95'878 * 255 / 240'120}));
}

TEST(ADSREnvelope, NegativeSettingsCountAsZero)
{
    EXPECT_EQ(points({.attack = -1, .decay = -5, .sustainLevel = -3, .sustainRate = -2, .release = -9}), points({}));
}

TEST(ADSREnvelope, IsWhatCountingEachTimeUnitGives)
{
    for (const int attack : {0, 1, 64, 127})
        for (const int decay : {0, 5, 18, 127})
            for (const int level : {0, 1, 63, 90, 127})
                for (const int rate : {0, 1, 11, 12, 127})
                    for (const int release : {0, 1, 35, 125, 127})
                        for (const bool active : {true, false}) {
                            const ADSRParameters p{attack, decay, level, rate, release, active};
                            ASSERT_EQ(points(p), pointsByCounting(p))
                                << attack << " " << decay << " " << level << " " << rate << " " << release;
                        }
}

TEST(ADSRGraphView, PlacesPointsByWholeDivisions)
{
    EXPECT_EQ(ADSRGraphView::position({0, 0}), QPoint(10, 63));
    EXPECT_EQ(ADSRGraphView::position({192'000, 255}), QPoint(266, -1));
    EXPECT_EQ(ADSRGraphView::position({749, 1}), QPoint(10, 63));
    EXPECT_EQ(ADSRGraphView::position({96'000, 128}), QPoint(138, 31));
}

} // namespace
} // namespace orvim
