#include "Projects/Formats/Json.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Score/Timeline.h"
#include "Projects/Score/TuningNames.h"
#include "Projects/Score/Utf8.h"

#include <nlohmann/json.hpp>

#include <set>
#include <tuple>

namespace Formats {

namespace {

using Json = nlohmann::ordered_json;
using Score::ModelBar;
using Score::ModelTimeSignature;
using Score::ScoreModel;

std::string Dumped(const Json& json) {
    // A name of a file may be of any bytes.
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json TuningJson(const std::vector<int>& tuning) {
    const std::string name = Score::TuningName(tuning);
    return {{"name", name.empty() ? Json(nullptr) : Json(name)}, {"strings", Score::TuningLetters(tuning)}};
}

// Gives `add` each bar with its number, counted from 1.
template <typename Add>
Json OfBars(const ScoreModel& model, Add add) {
    Json list = Json::array();
    for (std::size_t bar = 0; bar < model.Bars.size(); ++bar)
        add(model.Bars[bar], bar + 1, list);
    return list;
}

Json TuningChangesJson(const ScoreModel& model) {
    return OfBars(model, [](const ModelBar& bar, std::size_t number, Json& list) {
        if (!bar.Tuning)
            return;
        Json change{{"bar", number}};
        change.update(TuningJson(*bar.Tuning));
        list.push_back(std::move(change));
    });
}

Json ChordsJson(const ScoreModel& model) {
    return OfBars(model, [](const ModelBar& bar, std::size_t number, Json& list) {
        for (const Score::ModelText& chord : bar.ChordSymbols)
            list.push_back(
                {{"bar", number}, {"position", chord.Position}, {"name", Score::ToUtf8(chord.Text)}});
    });
}

Json LabelsJson(const ScoreModel& model) {
    return OfBars(model, [](const ModelBar& bar, std::size_t number, Json& list) {
        for (const std::string& label : bar.Labels)
            list.push_back({{"bar", number}, {"text", Score::ToUtf8(label)}});
    });
}

Json SignatureJson(std::size_t bar, const ModelTimeSignature& signature) {
    return {{"bar", bar}, {"beats", signature.Numerator}, {"unit", signature.Denominator}};
}

Json SignaturesJson(const ScoreModel& model) {
    return OfBars(model, [&](const ModelBar& bar, std::size_t number, Json& list) {
        if (bar.TimeSignature)
            list.push_back(SignatureJson(number, *bar.TimeSignature));
        else if (number == 1)
            list.push_back(SignatureJson(number, model.FirstTimeSignature));
    });
}

const char* RhythmName(const Fretline::TabBar& bar) {
    if (!bar.HasRhythms())
        return "none";
    switch (bar.GetRhythmLine().m_Kind) {
    case Fretline::RhythmLineKind::NoteLengths:
        return "letters";
    case Fretline::RhythmLineKind::BeatPositions:
        return "beats";
    default:
        return "spacing";
    }
}

Json BarsJson(const TabText::TabReading& reading, const TabPlace& tab) {
    Json list = Json::array();
    for (const TabText::BarReading& read : reading.GetBars()) {
        const Fretline::TabBar& bar = *read.Bar;
        const int rhythmLine = bar.GetRhythmLine().m_Line;
        const TabText::TextPlace start = tab.ToOriginal(bar.GetFirstLine(), bar.GetStartColumn());
        list.push_back(
            {{"bar", read.FirstScoreBar + 1},
             {"scoreBars", bar.ScoreBarCount()},
             {"line", start.Line + 1},
             {"column", start.Column + 1},
             {"length", bar.GetBarLength()},
             {"rhythm", RhythmName(bar)},
             {"rhythmLine", rhythmLine < 0 ? Json(nullptr) : Json(tab.ToOriginal(rhythmLine, 0).Line + 1)}});
    }
    return list;
}

Json WarningsJson(const TabText::TabReading& reading, const TabPlace& tab) {
    Json list = Json::array();
    for (const TabText::IgnoredLines& ignored : reading.GetIgnoredLines())
        list.push_back({{"line", tab.ToOriginal(ignored.First, 0).Line + 1},
                        {"column", 1},
                        {"lastLine", tab.ToOriginal(ignored.Last, 0).Line + 1},
                        {"text", Score::ToUtf8(ignored.Message)}});
    return list;
}

Json DoubtsJson(const std::vector<TabText::Doubt>& doubts) {
    Json list = Json::array();
    for (const TabText::Doubt& doubt : doubts)
        list.push_back({{"kind", TabText::NameOf(doubt.Kind).Id},
                        {"line", doubt.Line + 1},
                        {"column", doubt.Column + 1},
                        {"endColumn", doubt.EndColumn + 1},
                        {"what", Score::ToUtf8(doubt.What)},
                        {"try", Score::ToUtf8(doubt.Try)}});
    return list;
}

Json MarksJson(const TabText::TabReading& reading, const TabText::Markings& markings, const TabPlace& tab) {
    Json list = Json::array();
    // A stave and the line above it may ask for the same. A further bend goes on from the one before it.
    std::set<std::tuple<std::size_t, int, int, Score::Technique>> told;
    for (const TabText::NoteMark& mark : markings.Notes) {
        const bool isNew = told.emplace(mark.Bar, mark.NoteLine, mark.NoteColumn, mark.What.Kind).second;
        if (!isNew && mark.What.Kind != Score::Technique::Bend)
            continue;
        const TabText::TextPlace place = tab.ToOriginal(mark.NoteLine, mark.NoteColumn);
        list.push_back({{"kind", Score::NameOf(mark.What.Kind).Id},
                        {"amount", mark.What.Amount},
                        {"bar", reading.GetBars()[mark.Bar].FirstScoreBar + 1},
                        {"line", place.Line + 1},
                        {"column", place.Column + 1}});
    }
    return list;
}

Json RepeatsJson(const ScoreModel& model) {
    return OfBars(model, [](const ModelBar& bar, std::size_t number, Json& list) {
        const Score::ModelRepeats& repeats = bar.Repeats;
        if (!repeats.IsStart && !repeats.IsEnd && repeats.Endings.empty())
            return;
        Json entry{{"bar", number},
                   {"start", repeats.IsStart},
                   {"end", repeats.IsEnd},
                   {"times", repeats.IsEnd ? Json(repeats.Times) : Json(nullptr)}};
        if (!repeats.Endings.empty())
            entry["endings"] = repeats.Endings;
        list.push_back(std::move(entry));
    });
}

Json JumpsJson(const ScoreModel& model) {
    return OfBars(model, [](const ModelBar& bar, std::size_t number, Json& list) {
        const auto add = [&](bool has, const std::string& sign) {
            if (has)
                list.push_back({{"bar", number}, {"sign", sign}});
        };
        add(bar.Way.HasSegno, "Segno");
        add(bar.Way.HasCoda, "Coda");
        add(bar.Way.HasToCoda, "To Coda");
        add(bar.Way.HasFine, "Fine");
        add(bar.Way.To != Score::Jump::None, Score::JumpText(bar.Way));
    });
}

Json TemposJson(const ScoreModel& model) {
    return OfBars(model, [](const ModelBar& bar, std::size_t number, Json& list) {
        if (bar.Tempo > 0)
            list.push_back({{"bar", number}, {"tempo", bar.Tempo}});
    });
}

// The parts that sound together in the exports, and the bars of the score that theirs are.
Json PartsJson(const TabText::SplitScore& split) {
    Json list = Json::array();
    for (std::size_t part = 0; part < split.Parts.size(); ++part) {
        Json bars = Json::array();
        for (const TabText::PartBarSource& source : split.Sources[part])
            bars.push_back(source.ScoreBar ? Json(*source.ScoreBar + 1) : Json(nullptr));
        list.push_back({{"name", Score::ToUtf8(split.Parts[part].InstrumentName)},
                        {"tuning", TuningJson(split.Parts[part].Tuning)},
                        {"bars", std::move(bars)}});
    }
    return list;
}

// What few texts have, only where there is any.
void AddIfAny(Json& json, const char* name, Json list) {
    if (!list.empty())
        json[name] = std::move(list);
}

// What the text says of the piece; null for what it does not say.
Json HeadingJson(const Score::ModelHeading& heading) {
    const auto text = [](const std::string& value) {
        return value.empty() ? Json(nullptr) : Json(Score::ToUtf8(value));
    };
    return {{"title", text(heading.Title)},
            {"artist", text(heading.Artist)},
            {"tempo", heading.Tempo > 0 ? Json(heading.Tempo) : Json(nullptr)},
            {"capo", heading.Capo},
            {"swung", heading.IsSwung}};
}

} // namespace

std::string JsonText(const Conversion& conversion, std::span<const std::string> files) {
    const ScoreModel& model = conversion.GetMusic();
    Json json{{"file", conversion.Source},
              {"taken", true},
              {"title", conversion.Title},
              {"instrument", Score::ToUtf8(model.InstrumentName)},
              {"tuning", TuningJson(model.Tuning)},
              {"rhythms", model.HasRhythms},
              {"barCount", model.Bars.size()},
              {"notesStruck", Score::SoundingNotes(model).size()},
              {"chords", ChordsJson(model)},
              {"labels", LabelsJson(model)},
              {"timeSignatures", SignaturesJson(model)}};
    if (const TabText::TabReading* reading = conversion.GetReading()) {
        json["bars"] = BarsJson(*reading, *conversion.Tab);
        AddIfAny(json, "partsTogether", PartsJson(conversion.GetSplit()));
        AddIfAny(json, "tuningChanges", TuningChangesJson(model));
        json["heading"] = HeadingJson(model.Heading);
        json["repeats"] = RepeatsJson(model);
        AddIfAny(json, "jumps", JumpsJson(model));
        AddIfAny(json, "tempoChanges", TemposJson(model));
        json["techniques"] = MarksJson(*reading, conversion.GetMarkings(), *conversion.Tab);
        json["warnings"] = WarningsJson(*reading, *conversion.Tab);
        json["doubts"] = DoubtsJson(conversion.GetDoubts());
    }
    if (!conversion.Part.empty())
        json["part"] = conversion.Part;
    json["files"] = files;
    return Dumped(json);
}

std::string RefusalJson(std::string_view source, std::string_view part, std::string_view reason) {
    Json json{{"file", source}};
    if (!part.empty())
        json["part"] = part;
    json["taken"] = false;
    json["reason"] = reason;
    return Dumped(json);
}

} // namespace Formats
