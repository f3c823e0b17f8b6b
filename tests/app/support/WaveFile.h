#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtEndian>

#include <cstdint>
#include <vector>

namespace orvim::test {

/// How the samples of a sound file are stored; the first value is the number that the file holds.
enum class WaveCoding : std::uint16_t { pcm = 1, floatingPoint = 3, aLaw = 6, muLaw = 7 };

struct WaveFormat {
    WaveCoding coding = WaveCoding::pcm;
    std::uint16_t channels = 1;
    std::uint32_t rate = 24'000;
    std::uint16_t bits = 16;
};

template <typename Number>
void putLittleEndian(QByteArray& bytes, Number number)
{
    const Number stored = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char*>(&stored), sizeof stored);
}

/// A sound file of one format and one data chunk.
inline QByteArray waveFile(const WaveFormat& format, const QByteArray& data)
{
    const auto frameSize = static_cast<std::uint16_t>(format.channels * format.bits / 8);
    QByteArray file("RIFF");
    putLittleEndian(file, static_cast<std::uint32_t>(36 + data.size()));
    file += "WAVEfmt ";
    putLittleEndian(file, std::uint32_t{16});
    putLittleEndian(file, static_cast<std::uint16_t>(format.coding));
    putLittleEndian(file, format.channels);
    putLittleEndian(file, format.rate);
    putLittleEndian(file, format.rate * frameSize);
    putLittleEndian(file, frameSize);
    putLittleEndian(file, format.bits);
    file += "data";
    putLittleEndian(file, static_cast<std::uint32_t>(data.size()));
    return file + data;
}

/// 16-bit mono samples at 24,000 Hz.
inline QByteArray waveFile(const std::vector<std::int16_t>& samples)
{
    QByteArray data;
    for (const std::int16_t sample : samples)
        putLittleEndian(data, sample);
    return waveFile({}, data);
}

inline void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("cannot write a test's file");
}

} // namespace orvim::test
