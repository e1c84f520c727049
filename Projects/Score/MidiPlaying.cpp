#include "Projects/Score/MidiPlaying.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace Score {

namespace {

constexpr int kStruck = 90;
constexpr int kAccented = 115;
constexpr int kLedTo = 70;
constexpr int kDead = 55;
constexpr int kGhost = 45;
// In score units: a dead note is a click, a demisemiquaver long.
constexpr int kDeadLength = 32;
constexpr int kHighestMidiNote = 127;
constexpr int kSemitonesPerOctave = 12;
constexpr int kQuarterTonesPerSemitone = 2;
constexpr int kGreatestBend = 8191;
constexpr int kStepsOfABend = 8;

bool Has(const SoundingNote& note, Technique kind) {
    return FindTechnique(*note.Techniques, kind) != nullptr;
}

bool LeadsOn(const SoundingNote& note) {
    return Has(note, Technique::HammerOn) || Has(note, Technique::PullOff) || Has(note, Technique::Slide);
}

int VelocityOf(const SoundingNote& note, bool isLedTo) {
    if (Has(note, Technique::Dead))
        return kDead;
    if (Has(note, Technique::Ghost))
        return kGhost;
    if (Has(note, Technique::Accent))
        return kAccented;
    return isLedTo ? kLedTo : kStruck;
}

int EndOf(const SoundingNote& note) {
    const int length = note.End - note.Start;
    if (Has(note, Technique::Dead))
        return note.Start + std::min(length, kDeadLength);
    return Has(note, Technique::PalmMute) ? note.Start + (length + 1) / 2 : note.End;
}

// Above the open string, where a finger touches it over a fret; an octave above the fret elsewhere.
int RiseOfHarmonic(int fret) {
    static constexpr std::pair<int, int> kNodes[] = {{12, 12}, {7, 19}, {19, 19}, {5, 24},
                                                     {4, 28},  {9, 28}, {16, 28}};
    const auto* node = std::find_if(std::begin(kNodes), std::end(kNodes),
                                    [&](const auto& row) { return row.first == fret; });
    return node == std::end(kNodes) ? kSemitonesPerOctave : node->second - fret;
}

int PitchOf(const SoundingNote& note, int capo) {
    int pitch = note.Midi + capo;
    if (Has(note, Technique::NaturalHarmonic))
        pitch += RiseOfHarmonic(note.Fret);
    else if (Has(note, Technique::ArtificialHarmonic))
        pitch += kSemitonesPerOctave;
    return std::clamp(pitch, 0, kHighestMidiNote);
}

// Value of the pitch wheel for a bend in quarter tones.
int BendValue(int quarterTones) {
    constexpr int kRange = kBendRange * kQuarterTonesPerSemitone;
    return std::clamp(quarterTones, -kRange, kRange) * kGreatestBend / kRange;
}

// From one bend to another between two times, in equal steps.
void AddRamp(std::vector<PitchBend>& bends, int string, int start, int end, int quarterTones, int from = 0) {
    const int rise = BendValue(quarterTones) - BendValue(from);
    for (int step = 1; step <= kStepsOfABend; ++step)
        bends.push_back({start + (end - start) * step / kStepsOfABend, string,
                         BendValue(from) + rise * step / kStepsOfABend});
}

// One after the other within the first half of the note.
void AddBendsUp(std::vector<PitchBend>& bends, const SoundingNote& note) {
    const auto isBend = [](const ModelTechnique& technique) { return technique.Kind == Technique::Bend; };
    const auto& all = *note.Techniques;
    const auto count = static_cast<int>(std::count_if(all.begin(), all.end(), isBend));
    const auto timeOf = [&](int index) { return note.Start + (note.End - note.Start) * index / (2 * count); };
    int index = 0;
    int reached = 0;
    for (const ModelTechnique& bend : all)
        if (isBend(bend)) {
            AddRamp(bends, note.String, timeOf(index), timeOf(index + 1), reached + bend.Amount, reached);
            reached += bend.Amount;
            ++index;
        }
}

// And back; the last step is that to 0.
void AddRelease(std::vector<PitchBend>& bends, int string, int start, int end, int quarterTones) {
    for (int step = 1; step < kStepsOfABend; ++step)
        bends.push_back({start + (end - start) * step / kStepsOfABend, string,
                         BendValue(quarterTones) * (kStepsOfABend - step) / kStepsOfABend});
}

// A slide takes the last third of its note, a bend the first half, its release the last third.
void AddBends(std::vector<PitchBend>& bends, const SoundingNote& note, const SoundingNote* next) {
    const int length = note.End - note.Start;
    const ModelTechnique* bend = FindTechnique(*note.Techniques, Technique::Bend);
    const bool slides = next != nullptr && Has(note, Technique::Slide);
    if (length <= 0 || (bend == nullptr && !slides))
        return;
    if (bend != nullptr)
        AddBendsUp(bends, note);
    if (bend != nullptr && Has(note, Technique::Release))
        AddRelease(bends, note.String, note.End - length / 3, note.End, WholeBend(*note.Techniques));
    if (bend == nullptr)
        AddRamp(bends, note.String, note.End - length / 3, note.End,
                (next->Midi - note.Midi) * kQuarterTonesPerSemitone);
    bends.push_back({note.End, note.String, 0});
}

} // namespace

Playing PlayNotes(const std::vector<SoundingNote>& notes, int capo) {
    Playing playing;
    std::map<int, const SoundingNote*> last;
    for (const SoundingNote& note : notes) {
        const SoundingNote*& before = last[note.String];
        const bool isLedTo = before != nullptr && LeadsOn(*before);
        playing.Notes.push_back(
            {note.Start, EndOf(note), note.String, PitchOf(note, capo), VelocityOf(note, isLedTo)});
        if (before != nullptr)
            AddBends(playing.Bends, *before, &note);
        before = &note;
    }
    for (const auto& [string, note] : last)
        AddBends(playing.Bends, *note, nullptr);
    std::stable_sort(playing.Bends.begin(), playing.Bends.end(),
                     [](const PitchBend& a, const PitchBend& b) { return a.String < b.String; });
    return playing;
}

} // namespace Score
