#pragma once

#include "pages/TransferListActions.h"
#include "platform/ImageTransferItems.h"

namespace orvim {

class DisplaySimulatorState;

/// What stands in the image page, and which parts an export has.
struct ImageTransferPageState {
    std::vector<ImageTransferItem> items;
    bool writeReset = true;
    bool writeUITypeSet = true;
    bool writeDrawCommand = true;
};

/// What the image page does: up to 32 pictures from files, to the module or into a MIDI file.
class ImageTransferPageActions : public TransferListActions
{
    Q_OBJECT

public:
    ImageTransferPageActions(MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator, Dialogs& dialogs);

    const ImageTransferPageState& state() const { return m_state; }

    int itemCount() const override;
    TransferRow row(int index) const override;
    QString headerText() const override;
    std::vector<TransferOption> options() override;

protected:
    void clearItems() override;
    void removeItems(const QSet<QUuid>& ids) override;
    void renumber() override;
    bool addFile(const QString& path) override;
    std::vector<std::uint8_t> exportedBytes() const override;
    std::function<void()> readReplacement(const QString& path) override;
    void sendToModule(const QUuid& id) override;

private:
    void send(const ImageTransferItem& item);

    DisplaySimulatorState& m_displaySimulator;
    ImageTransferPageState m_state;
};

} // namespace orvim
