#pragma once

#include "core/protocol/Message.h"
#include "core/tone/ToneParameterTable.h"
#include "core/tone/ToneRecords.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tonavelle {

/// Batches of which each belongs together, one parameter's messages for example.
using MessageGroups = std::vector<Batch>;

/// The groups' messages in one batch, order kept.
Batch flattened(const MessageGroups& groups);

} // namespace tonavelle

/// What carries each tone parameter to the module, and in which order a channel or the whole module is written.
/// `channel` is 0...15. Nothing here fails: signed values are limited to their range, of others seven bits count.
namespace tonavelle::ToneEditorBuilder {

/// Writes one of the module's own parameters, all of which have seven bits.
Batch nrpn(int channel, int msb, int lsb, int value);

Message masterVolume(int value);

/// Six groups: master volume, delay, chorus, reverb.
MessageGroups masterMessageGroups(const MasterToneParameters& master, int channel);
Batch masterMessages(const MasterToneParameters& master, int channel);

/// Bank Select in two messages and Program Change.
Batch programSelectionMessages(int channel, const ChannelToneParameters& parameters);

/// Melody or drum track.
Batch drumTrackSettingMessages(int channel, const ChannelToneParameters& parameters);

/// The two above: all that decides which sound the channel plays.
Batch soundSelectionMessages(int channel, const ChannelToneParameters& parameters);

/// Twelve groups: mixer and tuning, with the wheels put to rest and no parameter left selected at the end.
MessageGroups gmBasicSetupMessageGroups(int channel, const ChannelToneParameters& parameters);

/// Eight groups: filter, vibrato, distortion, unison.
MessageGroups soundVariationMessageGroups(int channel, const ChannelToneParameters& parameters);

/// Thirteen groups: the sound detail.
MessageGroups voiceEditMessageGroups(int channel, const ChannelToneParameters& parameters);
Batch voiceEditMessages(int channel, const ChannelToneParameters& parameters);

/// Basic setup and sound variation.
Batch gmSetupMessages(int channel, const ChannelToneParameters& parameters);

/// Whether the channel has a sound detail of its own. A drum channel and one in the user bank play what stands in the
/// module's patches instead.
bool sendsVoiceEdit(const ChannelToneParameters& parameters);

/// The GM setup, and the sound detail where there is one.
Batch channelSetupMessages(int channel, const ChannelToneParameters& parameters);

/// A whole channel. The detail comes behind the Program Change, which loads a factory sound in the module.
Batch channelMessages(int channel, const ChannelToneParameters& parameters);

/// Gives a channel its own sound back after it was used to hear a patch.
Batch restoreMessages(int channel, const ChannelToneParameters& parameters);

/// Reset, master and at most the first 16 channels.
Batch sendAllMessages(const MasterToneParameters& master, std::span<const ChannelToneParameters> channels);

/// What is sent when one control is moved.
Batch liveMessages(ToneParameterID id, const MasterToneParameters& master);
Batch liveMessages(ToneParameterID id, int channel, const ChannelToneParameters& parameters);

/// Makes a channel play a user melody (`program` 0...127), or the user drum set.
Batch selectUserMelodyPatch(int channel, int program);
Batch selectUserDrumPatch(int channel);

/// Stores a sound in the module: a melody under its `program`, a drum under its `drumKey` (a MIDI note; `program`
/// stands in where it is absent) at the pitch `noteNumber`.
Message userPatchParam(bool isDrum, int program, std::uint8_t noteNumber, const ChannelToneParameters& parameters,
                       std::optional<int> drumKey);

/// Names a user melody, or the user drum set as a whole.
Message userPatchName(bool isDrum, int program, std::string_view name);

} // namespace tonavelle::ToneEditorBuilder
