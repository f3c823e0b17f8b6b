// Pictures and sounds from their files, and the files of whole lists. Beside them: the picture reader with the size
// that is drawn, the decoder alone, and the plain way of a sound through floats with a logarithm a sample.
// `peakMB` is what the process grew by while one was read.

#include "core/media/ImageTransferBuilder.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "platform/ImageTransferItems.h"
#include "platform/SoundTransferItems.h"
#include "platform/WholeFile.h"
#include "tests/app/support/WaveFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <sndfile.h>

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

namespace orvim {
namespace {

using Bytes = std::vector<std::uint8_t>;
namespace Transfer = tonavelle::TransferMIDIFileBuilder;

QString path(const char* name)
{
    static const QTemporaryDir folder;
    return folder.filePath(QString::fromUtf8(name));
}

/// A value of /proc/self/status in megabytes.
double processMegabytes(const QByteArray& name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith(name + ':')) return line.mid(name.size() + 1).simplified().split(' ')[0].toDouble() / 1024;
    return 0;
}

template <typename Action>
double peakMegabytes(const Action& action)
{
    QFile reset(QStringLiteral("/proc/self/clear_refs"));
    if (reset.open(QIODevice::WriteOnly)) reset.write("5");
    reset.close();
    const double before = processMegabytes("VmRSS");
    benchmark::DoNotOptimize(action());
    return processMegabytes("VmHWM") - before;
}

template <typename Action>
void measure(benchmark::State& state, const Action& action)
{
    state.counters["peakMB"] = peakMegabytes(action);
    for (auto _ : state)
        benchmark::DoNotOptimize(action());
}

QString picture(const char* name, int width, int height)
{
    const QString file = path(name);
    if (QFile::exists(file)) return file;
    std::mt19937 random(1);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const int grain = static_cast<int>(random() % 16);
            line[x] = qRgb(x * 240 / width + grain, y * 240 / height + grain, (x / 50 + y / 40) % 2 * 200 + grain);
        }
    }
    image.save(file, nullptr, 90);
    return file;
}

QString photo()
{
    return picture("photo.jpg", 4'000, 3'000);
}

QString drawing()
{
    return picture("drawing.png", 300, 200);
}

QString stereoSound(const char* name, int rate, int seconds)
{
    const QString file = path(name);
    if (QFile::exists(file)) return file;
    std::mt19937 random(2);
    QByteArray data(static_cast<qsizetype>(rate) * seconds * 4, Qt::Uninitialized);
    for (auto& byte : data)
        byte = static_cast<char>(random());
    test::writeFile(file, test::waveFile({test::WaveCoding::pcm, 2, static_cast<std::uint32_t>(rate), 16}, data));
    return file;
}

void readerAloneToTheDrawnSize(benchmark::State& state)
{
    const QString file = photo();
    measure(state, [&] {
        QImageReader reader(file);
        reader.setScaledSize(QSize(64, 48));
        return reader.read();
    });
}

void wholeDecodeOfA12MegapixelJPEG(benchmark::State& state)
{
    const QString file = photo();
    measure(state, [&] { return QImageReader(file).read(); });
}

/// Goal: 1.3 times the reader alone, under 10 MB.
void loadA12MegapixelJPEG(benchmark::State& state)
{
    const QString file = photo();
    measure(state, [&] { return loadPicture(file); });
}

void decodeOfA300By200PNG(benchmark::State& state)
{
    const QString file = drawing();
    measure(state, [&] { return QImageReader(file).read(); });
}

/// Goal: 1.2 times the decode.
void loadA300By200PNG(benchmark::State& state)
{
    const QString file = drawing();
    measure(state, [&] { return loadPicture(file); });
}

Bytes plainCodes(const QString& file)
{
    SF_INFO info{};
    SNDFILE* const sound = sf_open(QFile::encodeName(file).constData(), SFM_READ, &info);
    std::vector<float> frames(static_cast<std::size_t>(info.frames * info.channels));
    sf_readf_float(sound, frames.data(), info.frames);
    sf_close(sound);
    Bytes codes(static_cast<std::size_t>(std::lround(24'000.0 * static_cast<double>(info.frames) / info.samplerate)));
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const auto frame =
            static_cast<std::size_t>(static_cast<double>(info.samplerate) * static_cast<double>(i) / 24'000);
        const float mean = (frames[2 * frame] + frames[2 * frame + 1]) / 2;
        const auto pcm = static_cast<std::int16_t>(std::clamp(mean, -1.0f, 1.0f) * 32'767.0f);
        const double x = pcm / 32'768.0;
        const double y = std::copysign(std::log(1 + 127 * std::abs(x)) * 63 / 4.852030263919617, x);
        codes[i] = static_cast<std::uint8_t>(std::clamp(std::lround(y) + 64, 0L, 127L));
    }
    return codes;
}

void plainPathOf50SecondsToCodes(benchmark::State& state)
{
    const QString file = stereoSound("50s.wav", 44'100, 50);
    measure(state, [&] { return plainCodes(file); });
}

/// Goal: 0.6 times the plain path.
void load50SecondsToCodes(benchmark::State& state)
{
    const QString file = stereoSound("50s.wav", 44'100, 50);
    measure(state, [&] {
        const std::vector<tonavelle::SamplingSoundItem> items{{*loadAudioFile(file)}};
        return tonavelle::SamplingSoundBuilder::serializeULawSamples(items, false);
    });
}

/// More than the module holds. Goal: under 300 ms and 250 MB.
void load10Minutes(benchmark::State& state)
{
    const QString file = stereoSound("600s.wav", 48'000, 600);
    measure(state, [&] { return loadAudioFile(file); });
}

bool writeFile(const QString& file, const std::vector<tonavelle::SimpleMIDITimedEvent>& events)
{
    const Bytes bytes = tonavelle::SimpleMIDIFileBuilder::wpfStyleSequence(events, Transfer::ticksPerQuarterNote);
    return writeWholeFile(
        file, QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
}

bool export32Pictures()
{
    static const Bytes rgb888 = loadPicture(photo());
    std::vector<tonavelle::Batch> images;
    for (std::uint8_t screen = 0; screen < 32; ++screen)
        images.push_back(tonavelle::ImageTransferBuilder::imageTransferRows(screen, rgb888));
    return writeFile(path("image_output.mid"), Transfer::imageTransferEvents(images, true, true, true));
}

bool exportFullSoundMemory()
{
    static const std::vector<tonavelle::SamplingSoundItem> items{{*loadAudioFile(stereoSound("50s.wav", 44'100, 50))}};
    const auto sections = tonavelle::SamplingSoundBuilder::buildSendDataSections(items, true);
    const auto settings = tonavelle::SamplingSoundBuilder::buildSettings(items);
    return writeFile(path("sound_output.mid"), Transfer::samplingSoundEvents(sections, settings, 1, true, true));
}

/// Goal: under 20 ms each.
void export32PicturesToAFile(benchmark::State& state)
{
    measure(state, export32Pictures);
}

void exportFullSoundMemoryToAFile(benchmark::State& state)
{
    measure(state, exportFullSoundMemory);
}

/// Goal: under 30 ms each.
void restore32PicturesFromAFile(benchmark::State& state)
{
    export32Pictures();
    measure(state, [] { return readImageItemsFromMIDIFile(path("image_output.mid")); });
}

void restoreFullSoundMemoryFromAFile(benchmark::State& state)
{
    exportFullSoundMemory();
    measure(state, [] { return readSoundItemsFromMIDIFile(path("sound_output.mid")); });
}

BENCHMARK(readerAloneToTheDrawnSize)->Unit(benchmark::kMillisecond);
BENCHMARK(wholeDecodeOfA12MegapixelJPEG)->Unit(benchmark::kMillisecond);
BENCHMARK(loadA12MegapixelJPEG)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeOfA300By200PNG)->Unit(benchmark::kMillisecond);
BENCHMARK(loadA300By200PNG)->Unit(benchmark::kMillisecond);
BENCHMARK(plainPathOf50SecondsToCodes)->Unit(benchmark::kMillisecond);
BENCHMARK(load50SecondsToCodes)->Unit(benchmark::kMillisecond);
BENCHMARK(load10Minutes)->Unit(benchmark::kMillisecond);
BENCHMARK(export32PicturesToAFile)->Unit(benchmark::kMillisecond);
BENCHMARK(exportFullSoundMemoryToAFile)->Unit(benchmark::kMillisecond);
BENCHMARK(restore32PicturesFromAFile)->Unit(benchmark::kMillisecond);
BENCHMARK(restoreFullSoundMemoryFromAFile)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace orvim

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
