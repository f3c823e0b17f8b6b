#include "core/tone/FactoryMelodyTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tonavelle {

/// resources/factory_melody.csv, embedded when the program is built.
extern const std::string_view factoryMelodyTableText;

namespace {

struct NamedIndex {
    std::string_view name;
    std::uint8_t index;
};

constexpr std::array<NamedIndex, 7> waveTypeForms{{
    {"SQUARE", 1},
    {"TRIANGLE", 2},
    {"SAW", 3},
    {"WHITE_NOISE", 4},
    {"PINK_NOISE", 5},
    {"PCM", 6},
    {"PCM_REV", 7},
}};
constexpr std::uint8_t sineWave = 0;

constexpr std::array<NamedIndex, 2> sweepTypeForms{{{"SWEEP_UP", 0}, {"SWEEP_DOWN", 1}}};
constexpr std::uint8_t noSweep = 2;

std::uint8_t indexOf(std::span<const NamedIndex> forms, std::string_view name, std::uint8_t otherwise)
{
    for (const NamedIndex& form : forms)
        if (form.name == name) return form.index;
    return otherwise;
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view whiteSpace = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

/// An optional sign and decimal digits, of which the low seven bits count; anything else is 0.
std::uint8_t sevenBitNumber(std::string_view field)
{
    std::string_view digits = trimmed(field);
    const bool isNegative = digits.starts_with('-');
    if (isNegative || digits.starts_with('+')) digits.remove_prefix(1);
    std::uint32_t value = 0; // wraps, which leaves the low seven bits right for any number of digits
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') return 0;
        value = value * 10 + static_cast<std::uint32_t>(digit - '0');
    }
    return static_cast<std::uint8_t>((isNegative ? 0 - value : value) & 127);
}

TonePreset preset(std::span<const std::string_view> fields)
{
    return {
        .name = std::string(fields[0]),
        .waveType = indexOf(waveTypeForms, fields[2], sineWave),
        .waveNumber = sevenBitNumber(fields[3]),
        .ringModMultiply = sevenBitNumber(fields[4]),
        .ringModGain = sevenBitNumber(fields[5]),
        .sweepType = indexOf(sweepTypeForms, fields[6], noSweep),
        .sweepSpeed = sevenBitNumber(fields[7]),
        .attack = sevenBitNumber(fields[8]),
        .decay = sevenBitNumber(fields[9]),
        .sustainLevel = sevenBitNumber(fields[10]),
        .sustainRate = sevenBitNumber(fields[11]),
        .release = sevenBitNumber(fields[12]),
        .isReleaseActive = fields[1] == "NOTE_MELODY",
        .outputGain = sevenBitNumber(fields[14]),
    };
}

} // namespace

const std::vector<TonePreset>& factoryMelodyPresets()
{
    static const std::vector<TonePreset> presets = parseMelodyTable(factoryMelodyTableText);
    return presets;
}

std::vector<TonePreset> parseMelodyTable(std::string_view text)
{
    constexpr std::size_t fewestFields = 15;
    std::vector<TonePreset> presets;
    const std::vector<std::string_view> lines = split(text, '\n');
    for (const std::string_view line : std::span(lines).subspan(1)) {
        const std::vector<std::string_view> fields = split(line, ',');
        if (fields.size() >= fewestFields) presets.push_back(preset(fields));
    }
    return presets;
}

void applyPreset(const TonePreset& preset, ChannelToneParameters& parameters)
{
    parameters.isReleaseActive = preset.isReleaseActive;
    parameters.waveType = preset.waveType;
    parameters.waveNumber = preset.waveNumber;
    parameters.ringModMultiply = preset.ringModMultiply;
    parameters.ringModGain = preset.ringModGain;
    parameters.sweepType = preset.sweepType;
    parameters.sweepSpeed = preset.sweepSpeed;
    parameters.attack = preset.attack;
    parameters.decay = preset.decay;
    parameters.sustainLevel = preset.sustainLevel;
    parameters.sustainRate = preset.sustainRate;
    parameters.release = preset.release;
    parameters.outputGain = preset.outputGain;
}

void applyFactoryPreset(int program, ChannelToneParameters& parameters)
{
    const std::vector<TonePreset>& presets = factoryMelodyPresets();
    const auto row = static_cast<std::size_t>(program); // a negative program is no row either
    if (row < presets.size()) applyPreset(presets[row], parameters);
}

} // namespace tonavelle
