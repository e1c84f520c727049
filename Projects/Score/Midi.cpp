#include "Projects/Score/Midi.h"

#include "Projects/Score/MidiPlaying.h"
#include "Projects/Score/PlayedOut.h"
#include "Projects/Score/Timeline.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace Score {

namespace {

constexpr int kDrumChannel = 9;
constexpr int kChannels = 15;
constexpr int kMicrosecondsPerMinute = 60000000;
// Crotchets a minute where nobody says.
constexpr int kUsualTempo = 120;
constexpr int kClocksPerCrotchet = 24;
constexpr int kThirtySecondsPerCrotchet = 8;

enum Status : int {
    kNoteOff = 0x80,
    kNoteOn = 0x90,
    kControlChange = 0xB0,
    kProgramChange = 0xC0,
    kPitchBend = 0xE0,
    kMeta = 0xFF
};
// Controllers that choose a parameter and set it; the parameter 0 is the range of the pitch wheel.
enum Controller : int { kDataCoarse = 6, kDataFine = 38, kParameterFine = 100, kParameterCoarse = 101 };
enum MetaKind : int {
    kTrackName = 0x03,
    kMarker = 0x06,
    kEndOfTrack = 0x2F,
    kSetTempo = 0x51,
    kTimeSignature = 0x58
};

// An event at its time. Of two at the same time the one with the lower rank comes first.
struct TimedBytes {
    int Time;
    int Rank;
    std::string Bytes;
};

char Byte(int value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}

std::string BigEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        text += Byte(static_cast<int>((value >> shift) & 0xFF));
    return text;
}

// Seven bits a byte, all but the last with the top bit set.
std::string VariableLength(std::uint32_t value) {
    std::string text(1, Byte(static_cast<int>(value & 0x7F)));
    for (value >>= 7; value != 0; value >>= 7)
        text.insert(text.begin(), Byte(static_cast<int>((value & 0x7F) | 0x80)));
    return text;
}

std::string Meta(MetaKind kind, const std::string& data) {
    return std::string{Byte(kMeta), Byte(kind)} + VariableLength(static_cast<std::uint32_t>(data.size())) +
           data;
}

std::string Track(std::vector<TimedBytes> events) {
    std::stable_sort(events.begin(), events.end(), [](const TimedBytes& a, const TimedBytes& b) {
        return a.Time != b.Time ? a.Time < b.Time : a.Rank < b.Rank;
    });
    std::string data;
    int now = 0;
    for (const TimedBytes& event : events) {
        data += VariableLength(static_cast<std::uint32_t>(event.Time - now)) + event.Bytes;
        now = event.Time;
    }
    return "MTrk" + BigEndian(static_cast<std::uint32_t>(data.size()), 4) + data;
}

std::string TimeSignatureBytes(const ModelTimeSignature& time) {
    const int exponent = std::countr_zero(static_cast<unsigned>(time.Denominator));
    return Meta(kTimeSignature, {Byte(std::min(time.Numerator, 255)), Byte(exponent),
                                 Byte(kClocksPerCrotchet), Byte(kThirtySecondsPerCrotchet)});
}

std::string TempoBytes(int tempo) {
    return Meta(kSetTempo, BigEndian(static_cast<std::uint32_t>(kMicrosecondsPerMinute / tempo), 3));
}

std::string ConductorTrack(const ScoreModel& score, const std::vector<int>& starts) {
    const int tempo = score.Heading.Tempo > 0 ? score.Heading.Tempo : kUsualTempo;
    std::vector<TimedBytes> events{{0, 0, TempoBytes(tempo)}};
    if (score.Bars.empty() || !score.Bars.front().TimeSignature)
        events.push_back({0, 1, TimeSignatureBytes(score.FirstTimeSignature)});
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar) {
        if (score.Bars[bar].Tempo > 0)
            events.push_back({starts[bar], 0, TempoBytes(score.Bars[bar].Tempo)});
        if (score.Bars[bar].TimeSignature)
            events.push_back({starts[bar], 1, TimeSignatureBytes(*score.Bars[bar].TimeSignature)});
        for (const std::string& label : score.Bars[bar].Labels)
            events.push_back({starts[bar], 2, Meta(kMarker, label)});
    }
    events.push_back({starts.back(), 3, Meta(kEndOfTrack, {})});
    return Track(std::move(events));
}

// The channels of one part, counted without that of the drums.
struct PartChannels {
    int First = 0;
    int Count = kChannels;

    // The lowest string has the first one.
    int Of(int string) const {
        const int channel = First + std::min(string, Count - 1);
        return channel < kDrumChannel ? channel : channel + 1;
    }
};

std::vector<PartChannels> ChannelsOf(ScoreParts parts) {
    int strings = 0;
    for (const ScoreModel& part : parts)
        strings += part.CountStrings();
    const int most = std::max(kChannels / static_cast<int>(parts.size()), 1);
    std::vector<PartChannels> channels;
    int next = 0;
    for (const ScoreModel& part : parts) {
        const int count = strings <= kChannels ? std::max(part.CountStrings(), 1) : most;
        channels.push_back({std::min(next, kChannels - 1), count});
        next += count;
    }
    return channels;
}

void AppendBendRange(std::vector<TimedBytes>& events, int channel) {
    const std::pair<Controller, int> kSettings[] = {
        {kParameterCoarse, 0}, {kParameterFine, 0}, {kDataCoarse, kBendRange}, {kDataFine, 0}};
    for (const auto& [controller, value] : kSettings)
        events.push_back({0, 0, {Byte(kControlChange | channel), Byte(controller), Byte(value)}});
}

// The wheel rests at the middle of fourteen bits, of which the low seven come first.
std::string BendBytes(int channel, int value) {
    constexpr int kMiddle = 0x2000;
    const int wheel = kMiddle + value;
    return {Byte(kPitchBend | channel), Byte(wheel & 0x7F), Byte(wheel >> 7)};
}

std::string NoteTrack(const ScoreModel& score, const PartChannels& channels, int end) {
    std::vector<TimedBytes> events{{0, 0, Meta(kTrackName, score.InstrumentName)}};
    const int strings = score.CountStrings();
    for (int string = 0; string < strings; ++string)
        events.push_back({0, 0, {Byte(kProgramChange | channels.Of(string)), Byte(score.Program)}});
    const Playing playing = PlayNotes(SoundingNotes(score), score.Heading.Capo);
    if (!playing.Bends.empty())
        for (int string = 0; string < strings; ++string)
            AppendBendRange(events, channels.Of(string));
    for (const PlayedNote& note : playing.Notes) {
        const int channel = channels.Of(note.String);
        if (note.End <= note.Start)
            continue;
        events.push_back({note.Start, 2, {Byte(kNoteOn | channel), Byte(note.Pitch), Byte(note.Velocity)}});
        events.push_back({note.End, 1, {Byte(kNoteOff | channel), Byte(note.Pitch), Byte(0)}});
        end = std::max(end, note.End);
    }
    for (const PitchBend& bend : playing.Bends)
        events.push_back({bend.Time, 1, BendBytes(channels.Of(bend.String), bend.Value)});
    events.push_back({end, 3, Meta(kEndOfTrack, {})});
    return Track(std::move(events));
}

} // namespace

std::string MidiBytes(ScoreParts parts) {
    constexpr std::uint32_t kHeaderLength = 6;
    constexpr std::uint32_t kFormat = 1;
    const std::vector<PartChannels> channels = ChannelsOf(parts);
    std::string tracks;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        const std::optional<ScoreModel> playedOut = PlayedOut(parts[index]);
        const ScoreModel& played = playedOut ? *playedOut : parts[index];
        const std::vector<int> starts = BarStarts(played);
        if (index == 0)
            tracks += ConductorTrack(played, starts);
        tracks += NoteTrack(played, channels[index], starts.back());
    }
    return "MThd" + BigEndian(kHeaderLength, 4) + BigEndian(kFormat, 2) +
           BigEndian(static_cast<std::uint32_t>(parts.size() + 1), 2) + BigEndian(kUnitsPerCrotchet, 2) +
           tracks;
}

} // namespace Score
