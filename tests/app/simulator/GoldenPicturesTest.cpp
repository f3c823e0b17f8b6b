#include "DisplayScenes.h"
#include "simulator/RenderDisplay.h"

#include <QImage>
#include <QString>

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvim {
namespace {

const std::filesystem::path goldenFolder = ORVIM_SOURCE_DIR "/tests/app/simulator/golden";
const std::filesystem::path failureFolder = ORVIM_BINARY_DIR "/golden-failures";
constexpr const char* renewVariable = "ORVIM_RENEW_GOLDENS";

void save(const QImage& image, const std::filesystem::path& path)
{
    std::filesystem::create_directories(path.parent_path());
    if (!image.save(QString::fromStdString(path.string()))) throw std::runtime_error("cannot write " + path.string());
}

QImage load(const std::filesystem::path& path)
{
    return QImage(QString::fromStdString(path.string())).convertToFormat(QImage::Format_RGB888);
}

QImage pictureOf(const DisplayFields& fields)
{
    DisplayCanvas canvas;
    renderDisplay(fields, canvas);
    const QImage image(canvas.bytes().data(), DisplayCanvas::width, DisplayCanvas::height, QImage::Format_RGBA8888);
    return image.convertToFormat(QImage::Format_RGB888);
}

/// White where the two differ or only one has a pixel, black elsewhere.
QImage differenceOf(const QImage& actual, const QImage& expected)
{
    QImage difference(actual.size(), QImage::Format_RGB888);
    difference.fill(Qt::black);
    for (int y = 0; y < actual.height(); ++y)
        for (int x = 0; x < actual.width(); ++x)
            if (!expected.valid(x, y) || actual.pixel(x, y) != expected.pixel(x, y))
                difference.setPixelColor(x, y, Qt::white);
    return difference;
}

std::vector<std::string> namesOfFolders()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(goldenFolder))
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

void renewAll()
{
    for (const auto& scene : test::displayScenes())
        save(pictureOf(scene.fields), goldenFolder / scene.name / "expected.png");
}

TEST(GoldenPictures, EveryFolderHasItsSceneAndEverySceneItsFolder)
{
    if (qEnvironmentVariableIsSet(renewVariable)) renewAll();
    std::vector<std::string> names;
    for (const auto& scene : test::displayScenes())
        names.push_back(scene.name);
    EXPECT_EQ(names.size(), 79u);
    EXPECT_THAT(namesOfFolders(), testing::UnorderedElementsAreArray(names));
}

class GoldenPicture : public testing::TestWithParam<std::string>
{
};

TEST_P(GoldenPicture, IsWhatIsDrawn)
{
    const auto scenes = test::displayScenes();
    const auto scene = std::ranges::find(scenes, GetParam(), &test::DisplayScene::name);
    ASSERT_NE(scene, scenes.end()) << "a folder without a scene";

    const QImage actual = pictureOf(scene->fields);
    const QImage expected = load(goldenFolder / scene->name / "expected.png");
    if (actual == expected) return;
    const auto folder = failureFolder / scene->name;
    save(actual, folder / "actual.png");
    save(expected, folder / "expected.png");
    save(differenceOf(actual, expected), folder / "difference.png");
    FAIL() << "see " << folder.string();
}

/// The folder's name as a test may be called.
std::string testName(const testing::TestParamInfo<std::string>& scene)
{
    std::string name = scene.param;
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Scenes, GoldenPicture, testing::ValuesIn(namesOfFolders()), testName);

} // namespace
} // namespace orvim
