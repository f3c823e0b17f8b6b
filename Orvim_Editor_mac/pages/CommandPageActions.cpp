#include "pages/CommandPageActions.h"

#include "DisplaySimulatorState.h"
#include "MIDIOutManager.h"
#include "core/media/LyricsSysExBuilder.h"
#include "core/protocol/MIDIMessageBuilder.h"

#include <algorithm>

namespace orvim {

using tonavelle::JapaneseCharacterDeleteTarget;
using tonavelle::JapaneseCharacterLine;
using tonavelle::UIFacePart;
namespace SysExBuilder = tonavelle::SysExBuilder;

namespace {

constexpr qsizetype longestASCIIText = 32;
constexpr unsigned lipSyncUIType = 1;

std::vector<std::vector<bool>> dotRows(const DotGrid& dots)
{
    std::vector<std::vector<bool>> rows;
    for (const auto& row : dots)
        rows.emplace_back(row.begin(), row.end());
    return rows;
}

std::uint8_t wholeByte(double value)
{
    return static_cast<std::uint8_t>(value);
}

} // namespace

CommandPageActions::CommandPageActions(MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator,
                                       QObject* parent)
    : QObject(parent), m_midiOutManager(midiOutManager), m_displaySimulator(displaySimulator)
{
}

void CommandPageActions::reset(const ResetCommand& command)
{
    m_midiOutManager.send(command.message(), QString::fromUtf8(command.title));
    m_displaySimulator.resetForMessage(command.displayName);
}

void CommandPageActions::setUIType(unsigned value)
{
    m_midiOutManager.sendUIType(value);
    m_displaySimulator.setDisplayType(value);
}

void CommandPageActions::setRed(double value)
{
    setColorComponent(&CommandPageState::red, value);
}

void CommandPageActions::setGreen(double value)
{
    setColorComponent(&CommandPageState::green, value);
}

void CommandPageActions::setBlue(double value)
{
    setColorComponent(&CommandPageState::blue, value);
}

void CommandPageActions::setColorComponent(double CommandPageState::*component, double value)
{
    if (m_state.*component == value) return;
    m_state.*component = value;
    const std::uint8_t red = wholeByte(m_state.red);
    const std::uint8_t green = wholeByte(m_state.green);
    const std::uint8_t blue = wholeByte(m_state.blue);
    m_displaySimulator.setLcdColor(red, green, blue);
    m_midiOutManager.send(SysExBuilder::lcdColorSet(red, green, blue), QStringLiteral("LCD Color Set"));
}

int& CommandPageActions::facePart(UIFacePart part)
{
    if (part == UIFacePart::eyebrow) return m_state.eyebrow;
    return part == UIFacePart::eye ? m_state.eye : m_state.mouth;
}

void CommandPageActions::setFacePart(UIFacePart part, int value)
{
    facePart(part) = value;
    if (m_state.isResettingRipSync) return;
    try {
        const auto message = SysExBuilder::uiFaceSet(part, static_cast<std::uint8_t>(value));
        m_midiOutManager.send(message, QStringLiteral("UI Face Set"));
    } catch (const tonavelle::SysExBuilderError&) {
        return; // A face that cannot be said to the module does not appear on the simulated screen either.
    }
    m_displaySimulator.setFace(static_cast<int>(part), value);
}

void CommandPageActions::resetFace()
{
    m_state.isResettingRipSync = true;
    m_midiOutManager.sendUIType(lipSyncUIType);
    m_displaySimulator.setDisplayType(lipSyncUIType);
    m_midiOutManager.send(SysExBuilder::uiFaceSet(UIFacePart::all, 0), QStringLiteral("UI Face set"));
    m_midiOutManager.send(SysExBuilder::faceBlinkingSet(false), QStringLiteral("UI Face Blinking Set"));
    m_displaySimulator.resetFace();
    m_state.eyebrow = 0;
    m_state.eye = 0;
    m_state.mouth = 0;
    Q_EMIT faceChanged();
    // Only after the pickers have followed may their changes send again.
    QMetaObject::invokeMethod(
        this, [this] { m_state.isResettingRipSync = false; }, Qt::QueuedConnection);
}

void CommandPageActions::setFaceBlinking(bool on)
{
    m_midiOutManager.send(SysExBuilder::faceBlinkingSet(on), on ? QStringLiteral("ON") : QStringLiteral("OFF"));
    m_displaySimulator.setFaceBlinking(on);
}

void CommandPageActions::setJapaneseMode(bool on)
{
    m_midiOutManager.send(SysExBuilder::japaneseCharacterMode(on),
                          on ? QStringLiteral("日本語表示ON") : QStringLiteral("日本語表示OFF"));
    m_displaySimulator.setJapaneseMode(on);
}

void CommandPageActions::setAsciiText(const QString& text)
{
    m_state.asciiText = text;
    const std::string utf8 = text.toStdString();
    m_midiOutManager.send(SysExBuilder::displayDataLetter(utf8), QStringLiteral("Display Data (Letter)"));
    m_displaySimulator.showLetters(utf8);
}

void CommandPageActions::setJapaneseText(JapaneseCharacterLine line, const QString& text)
{
    const bool isUpper = line == JapaneseCharacterLine::upper;
    (isUpper ? m_state.japaneseUpper : m_state.japaneseLower) = text;
    const auto target = isUpper ? JapaneseCharacterDeleteTarget::upper : JapaneseCharacterDeleteTarget::lower;
    const std::string utf8 = text.toStdString();
    m_midiOutManager.send(SysExBuilder::japaneseCharacterDelete(target), QStringLiteral("Japanese Character Delete"));
    m_displaySimulator.deleteJapaneseText(static_cast<int>(target));
    m_midiOutManager.send(tonavelle::LyricsSysExBuilder::japaneseCharacterAdd(utf8, line),
                          QStringLiteral("Japanese Character Add"));
    m_displaySimulator.addJapaneseText(utf8, static_cast<int>(line));
}

void CommandPageActions::dragDot(QPointF position)
{
    if (const auto cell = DotGridGeometry::cellAt(position.x(), position.y())) {
        if (!m_state.stroke.moveTo(*cell, m_state.dotValues)) return;
        Q_EMIT dotsChanged();
        sendDots();
    }
}

void CommandPageActions::endDotStroke()
{
    m_state.stroke.end();
}

void CommandPageActions::toggleDot(DotCell cell)
{
    m_state.stroke.end();
    m_state.stroke.moveTo(cell, m_state.dotValues);
    m_state.stroke.end();
    Q_EMIT dotsChanged();
    sendDots();
}

void CommandPageActions::fillDots(bool on)
{
    DotGrid dots;
    for (auto& row : dots)
        row.fill(on);
    changeDots(dots);
}

void CommandPageActions::invertDots()
{
    DotGrid dots = m_state.dotValues;
    for (auto& row : dots)
        for (bool& dot : row)
            dot = !dot;
    changeDots(dots);
}

void CommandPageActions::changeDots(const DotGrid& dots)
{
    m_state.dotValues = dots;
    Q_EMIT dotsChanged();
    sendDots();
}

void CommandPageActions::sendDots()
{
    const auto rows = dotRows(m_state.dotValues);
    m_displaySimulator.setDotDisplay(rows);
    m_midiOutManager.send(SysExBuilder::displayDataDot(rows), QStringLiteral("Display Data (Dot)"));
}

void CommandPageActions::panic()
{
    m_midiOutManager.send(tonavelle::MIDIMessageBuilder::allSoundOffMessages(), QStringLiteral("All Sound Off"));
}

void CommandPageActions::setDebugMode(bool on)
{
    m_midiOutManager.send(SysExBuilder::debugMode(on),
                          on ? QStringLiteral("デバッグ情報ON") : QStringLiteral("デバッグ情報OFF"));
}

void CommandPageActions::showVersion()
{
    m_midiOutManager.send(SysExBuilder::versionDisplay(), QStringLiteral("バージョン表示"));
}

QString filteredASCII(const QString& text)
{
    QString result;
    for (const QChar character : text) {
        if (character.unicode() >= 0x20 && character.unicode() <= 0x7E) result += character;
    }
    return result.left(longestASCIIText);
}

} // namespace orvim
