#include "core/tone/ToneDataFile.h"
#include "core/tone/ToneModuleModel.h"
#include "core/tone/UserWaveformBuilder.h"
#include "tests/app/support/ToneEditorTest.h"
#include "tests/app/support/WaveFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <functional>

namespace orvim {
namespace {

using tonavelle::Batch;
using Tab = ToneEditorTab;
using ID = tonavelle::ToneParameterID;

/// What new, open and save do to everything else that the editor holds.
class ToneEditorOpenSaveTest : public test::ToneEditorTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        actions.channels.selectChannel(4);
        actions.channels.chooseProgram(30);
        actions.channels.setMaster(ID::reverbType, 2);
        actions.patches.selectUserMelody(9);
        actions.patches.setUserMelody(ID::attack, 77);
        actions.patches.selectUserDrum(40);
        actions.patches.setDrumSetName(QStringLiteral("Kit"));
        actions.waves.selectUserWave(3);
        actions.waves.chooseFormula(QStringLiteral("0"));
        forget();
    }

    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    QByteArray save(const QString& file)
    {
        dialogs.pathToSave = file;
        actions.files.save();
        QFile written(file);
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
    }

    void open(const QString& file)
    {
        dialogs.answer = true;
        dialogs.pathToOpen = file;
        actions.files.open();
    }

    void importWAV(const QString& file)
    {
        dialogs.pathToOpen = file;
        actions.files.importWAV();
    }

    void failASend()
    {
        auto& manager = plugged.runtime.midiOutManager();
        manager.setSelectedDestinationID(std::nullopt);
        actions.channels.setChannel(ID::volume, 7);
        EXPECT_TRUE(manager.lastErrorMessage());
    }

    static tonavelle::ToneInstrument heard(const Batch& messages)
    {
        tonavelle::ToneModuleModel module(tonavelle::factoryToneData(), {});
        for (const auto& message : messages)
            module.play(message);
        return tonavelle::toneInstrument(std::move(module).result());
    }

    QTemporaryDir folder;
};

TEST_F(ToneEditorOpenSaveTest, NewResetsTheScreensListOfChannelsAndKeepsTheTab)
{
    actions.previews.openTab(Tab::userDrum);
    ASSERT_EQ(part(4).name, "031:DistortionGt");
    dialogs.answer = true;
    actions.files.newToneData();
    EXPECT_EQ(part(4).name, "001:Piano 1");
    EXPECT_EQ(state().selectedToneTab, Tab::userDrum);
    EXPECT_EQ(state().selectedUserDrum, 40);
    EXPECT_EQ(state().selectedUserWave, 3);
    EXPECT_EQ(state().instrument.drumSetName, "User Drum");
    EXPECT_TRUE(sent().empty());
}

TEST_F(ToneEditorOpenSaveTest, OpenBringsBackWhatWasSavedAndKeepsTheSelections)
{
    save(path("tone_data.mid"));
    const auto saved = state().instrument;
    dialogs.answer = true;
    actions.files.newToneData();
    // The open tab, although its content was never built.
    actions.model.change(ToneEditorPart::tab, [](ToneEditorState& state) {
        state.selectedToneTab = Tab::channel;
        state.loadedToneTabs = {Tab::master};
    });
    plugged.runtime.displaySimulator().setDisplayType(5);
    forget();
    open(path("tone_data.mid"));
    EXPECT_EQ(state().instrument.drumSetName, "Kit");
    EXPECT_EQ(state().instrument.userMelodies[9].parameters, saved.userMelodies[9].parameters);
    EXPECT_EQ(state().instrument.master, saved.master);
    EXPECT_EQ(state().selectedChannel, 4);
    EXPECT_EQ(state().selectedUserMelody, 9);
    EXPECT_EQ(state().selectedUserDrum, 40);
    EXPECT_EQ(state().selectedUserWave, 0);
    EXPECT_EQ(state().loadedToneTabs, (std::set{Tab::master, Tab::channel}));
    EXPECT_NE(plugged.screen().displayType, DisplaySimulatorType::initial);
    EXPECT_TRUE(sent().empty());
}

TEST_F(ToneEditorOpenSaveTest, TheScreensListFollowsAFileWhenEverythingIsSent)
{
    save(path("tone_data.mid"));
    dialogs.answer = true;
    actions.files.newToneData();
    open(path("tone_data.mid"));
    EXPECT_EQ(part(4).name, "001:Piano 1");
    actions.sending.sendAll();
    EXPECT_EQ(part(4).name, "031:DistortionGt");
}

TEST_F(ToneEditorOpenSaveTest, TheModuleIsOutOfStepAfterOpenUntilEverythingIsSent)
{
    save(path("tone_data.mid"));
    dialogs.answer = true;
    actions.files.newToneData();
    forget();
    open(path("tone_data.mid"));
    EXPECT_NE(heard(sent()).channels, state().instrument.channels);
    actions.sending.sendAll();
    const auto module = heard(sent());
    EXPECT_EQ(module.master, state().instrument.master);
    EXPECT_EQ(module.channels, state().instrument.channels);
    EXPECT_EQ(module.userWaveforms, state().instrument.userWaveforms);
    EXPECT_EQ(module.drumSetName, state().instrument.drumSetName);
}

TEST_F(ToneEditorOpenSaveTest, ABrokenFileLeavesEverythingAsItWas)
{
    const QByteArray good = save(path("tone_data.mid"));
    actions.model.change(ToneEditorPart::tab, [](ToneEditorState& state) { state.selectedToneTab = Tab::userWave; });
    actions.channels.setMaster(ID::delayTime, 1);
    actions.waves.typeFormula(QStringLiteral("sin("));
    actions.waves.evaluateFormula();
    const ToneEditorState before = state();
    // A wrong header, one cut short, and a track that ends before its length.
    const std::array<QByteArray, 3> bad{QByteArray("MThx\0\0\0\6", 8) + good.mid(8), good.left(10),
                                        good.left(good.size() - 40)};
    for (const QByteArray& file : bad) {
        test::writeFile(path("bad.mid"), file);
        forget();
        open(path("bad.mid"));
        EXPECT_EQ(plugged.log(), QStringLiteral(" 音色データMIDIを読み込めません。\n"));
        EXPECT_EQ(state().instrument, before.instrument);
        EXPECT_EQ(state().sentUserWaveforms, before.sentUserWaveforms);
        EXPECT_EQ(state().selectedChannel, 4);
        EXPECT_EQ(state().selectedUserMelody, 9);
        EXPECT_EQ(state().selectedUserDrum, 40);
        EXPECT_EQ(state().selectedUserWave, 3);
        EXPECT_EQ(state().userWaveFormula, QStringLiteral("sin("));
        EXPECT_EQ(state().userWaveFormulaStatus, before.userWaveFormulaStatus);
        EXPECT_FALSE(state().userWaveFormulaStatus.isEmpty());
        EXPECT_EQ(state().loadedToneTabs, before.loadedToneTabs);
    }
}

TEST_F(ToneEditorOpenSaveTest, AReportTakesTheStatusOutOfItsErrorLook)
{
    struct Action {
        const char* report;
        std::function<void()> run;
    };
    const std::array<Action, 6> all{{
        {"音色データの新規作成をキャンセルしました。", [this] { actions.files.newToneData(); }},
        {"音色データ読込をキャンセルしました。", [this] { actions.files.open(); }},
        {"音色データ保存をキャンセルしました。", [this] { actions.files.save(); }},
        {"WAV読み込みをキャンセルしました。", [this] { actions.files.importWAV(); }},
        {"WAV保存をキャンセルしました。", [this] { actions.files.exportWAV(); }},
        {"音色データMIDIを読み込めません。", [this] { open(path("none.mid")); }},
    }};
    for (const Action& action : all) {
        failASend();
        action.run();
        EXPECT_EQ(status(), QString::fromUtf8(action.report));
        EXPECT_EQ(plugged.runtime.midiOutManager().lastErrorMessage(), std::nullopt);
    }
}

TEST_F(ToneEditorOpenSaveTest, AWaveformThatIsNotWholeIsNotExported)
{
    actions.model.change(ToneEditorPart::userWave,
                         [](ToneEditorState& state) { state.instrument.userWaveforms[3].resize(100); });
    dialogs.pathToSave = path("UserWave4.wav");
    actions.files.exportWAV();
    EXPECT_EQ(status(), QStringLiteral("WAV保存に失敗しました。"));
    EXPECT_FALSE(QFile::exists(path("UserWave4.wav")));
    EXPECT_FALSE(state().loadedToneTabs.contains(Tab::userWave));
}

TEST_F(ToneEditorOpenSaveTest, ALongSoundIsReadToTheEnd)
{
    // 100 s at 48 kHz: silence, and full scale in the last half.
    std::vector<std::int16_t> samples(4'800'000);
    std::fill(samples.begin() + 2'400'000, samples.end(), std::int16_t{32'767});
    test::writeFile(path("long.wav"), test::waveFile(samples));
    importWAV(path("long.wav"));
    EXPECT_EQ(status(), QStringLiteral("User Wave 4 にWAVを読み込みました。"));
    ASSERT_EQ(state().userWave().size(), 2'048U);
    EXPECT_EQ(state().userWave().front(), 0);
    EXPECT_EQ(state().userWave().back(), 32'767);
    EXPECT_TRUE(state().loadedToneTabs.contains(Tab::userWave));
}

TEST_F(ToneEditorOpenSaveTest, ASoundOfHoursIsRefusedUnread)
{
    test::writeFile(path("hours.wav"), test::waveFile(std::vector<std::int16_t>(10)));
    QFile file(path("hours.wav"));
    ASSERT_TRUE(file.resize(300'000'000));
    importWAV(path("hours.wav"));
    EXPECT_EQ(status(), QStringLiteral("WAV読み込みに失敗しました。"));
}

} // namespace
} // namespace orvim
