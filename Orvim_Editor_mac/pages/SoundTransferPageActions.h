#pragma once

#include "core/media/SamplingSoundBuilder.h"
#include "pages/TransferListActions.h"
#include "platform/SoundTransferItems.h"

namespace orvim {

/// What stands in the sound page, and how an export is made.
struct SoundTransferPageState {
    std::vector<SoundTransferItem> items;
    bool writeReset = true;
    bool writePlayCommand = true;
    bool reduceVolume = true;
};

/// What the sound page does: up to 32 sounds of 50 seconds in all, to the module or into a MIDI file.
class SoundTransferPageActions : public TransferListActions
{
    Q_OBJECT

public:
    SoundTransferPageActions(MIDIOutManager& midiOutManager, Dialogs& dialogs);

    const SoundTransferPageState& state() const { return m_state; }
    double totalSeconds() const;

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
    std::vector<tonavelle::SamplingSoundItem> sounds() const;
    void send(std::size_t index);

    SoundTransferPageState m_state;
};

} // namespace orvim
