#include "controls/ADSREnvelope.h"

#include <algorithm>
#include <cstdint>

namespace orvim::ADSREnvelope {

namespace {

constexpr std::int64_t timePerStep = 120; ///< of an attack or decay of 0; each further one takes twice that more
constexpr std::int64_t sustainPeriod = 15'360;
constexpr int greatestSetting = 127;

/// The curve so far; times are wide enough for any setting.
class Curve
{
public:
    explicit Curve(const ADSRParameters& parameters)
        : m_end(parameters.releaseActive ? noteOffTime : duration), m_points{{0, 0}}
    {
    }

    void attack(int setting)
    {
        m_time = std::min(stepTime(setting) + 1, m_end);
        m_level = fullLevel;
        add();
    }

    /// Falls in a straight line, which a step rounds up, and stops at its foot or at the note's end.
    void decay(int setting, int foot)
    {
        const std::int64_t length = stepTime(setting);
        const std::int64_t lastStep = std::min(length, m_end - m_time - 1);
        if (lastStep >= 0) m_level = fullLevel - static_cast<int>(lastStep * (fullLevel - foot) / length);
        m_time = std::min(m_time + length + 1, m_end);
        add();
    }

    void sustain(int rate)
    {
        if (rate == 0)
            m_time = std::max(m_end, m_time);
        else
            fall(std::max<std::int64_t>(sustainPeriod / (2 * std::int64_t{rate}), 1), m_end);
        add();
    }

    void release(int setting)
    {
        fall(setting == 0 ? 1 : 4 * std::int64_t{setting}, duration);
        add();
    }

    std::vector<EnvelopePoint> finished() &&
    {
        m_points.push_back({duration, 0});
        return std::move(m_points);
    }

private:
    static std::int64_t stepTime(int setting) { return (2 * std::int64_t{setting} + 1) * timePerStep; }

    /// One level down a period, until there is none left or the time has come.
    void fall(std::int64_t period, std::int64_t end)
    {
        if (m_level * period <= end - m_time) {
            m_time += m_level * period;
            m_level = 0;
            return;
        }
        m_level -= static_cast<int>((end - m_time) / period);
        m_time = end;
    }

    void add() { m_points.push_back({static_cast<int>(m_time), m_level}); }

    std::int64_t m_end;
    std::int64_t m_time = 0;
    int m_level = 0;
    std::vector<EnvelopePoint> m_points;
};

} // namespace

std::vector<EnvelopePoint> points(const ADSRParameters& parameters)
{
    Curve curve(parameters);
    curve.attack(std::max(parameters.attack, 0));
    curve.decay(std::max(parameters.decay, 0), 2 * std::clamp(parameters.sustainLevel, 0, greatestSetting));
    curve.sustain(std::max(parameters.sustainRate, 0));
    curve.release(std::max(parameters.release, 0));
    return std::move(curve).finished();
}

} // namespace orvim::ADSREnvelope
