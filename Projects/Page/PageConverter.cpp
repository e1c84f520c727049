#include "Projects/Page/PageConverter.h"

#include "Projects/Explain/OriginalSpans.h"
#include "Projects/Formats/Json.h"
#include "Projects/Opening/StoredOptions.h"
#include "Projects/Score/Utf8.h"
#include "Projects/TabText/NotePlaces.h"

#include <algorithm>
#include <fstream>

namespace Page {

namespace fs = std::filesystem;

using Json = Answer::Json;
using Opening::Opened;
using Opening::Outcome;

namespace {

// Every text gets this name while it is converted: what the user calls it may be no name of a file.
constexpr const char* kTabName = "untitled.tab";

constexpr const char* kJsonBlock = "json";
constexpr const char* kPreparedBlock = "prepared";
constexpr const char* kFilePrefix = "file:";

// A text in the folder as long as the object lives.
class TextFile {
public:
    TextFile(const fs::path& folder, std::string_view bytes) : m_Path(folder / kTabName) {
        std::ofstream file(m_Path, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.close();
        m_IsWritten = static_cast<bool>(file);
    }
    ~TextFile() {
        std::error_code failure;
        fs::remove(m_Path, failure);
    }
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    const fs::path& Path() const { return m_Path; }
    bool IsWritten() const { return m_IsWritten; }

private:
    fs::path m_Path;
    bool m_IsWritten = false;
};

Json LinesJson(const Formats::Conversion& conversion) {
    Json list = Json::array();
    const auto explanation = Explain::Explanation::Of(*conversion.GetReading(), conversion.Tab->Map);
    for (const Explain::OriginalLine& line : Explain::OriginalSpans(explanation, conversion.Tab->Map)) {
        Json spans = Json::array();
        for (const Explain::OriginalSpan& span : line.Spans)
            spans.push_back(
                {{"column", span.Column}, {"end", span.EndColumn}, {"kind", NameOf(span.Kind).Id}});
        Json notes = Json::array();
        for (const std::string& note : line.Notes)
            notes.push_back(Score::ToUtf8(note));
        list.push_back({{"line", line.Line}, {"spans", std::move(spans)}, {"notes", std::move(notes)}});
    }
    return list;
}

Json NotesJson(const Formats::Conversion& conversion) {
    Json list = Json::array();
    std::vector<TabText::NotePlace> notes =
        TabText::NotePlaces(*conversion.GetReading(), conversion.GetMarkings(), conversion.GetMusic());
    for (const TabText::NotePlace& note : TabText::PlacesInParts(std::move(notes), conversion.GetSplit())) {
        const TabText::TextPlace start = conversion.Tab->ToOriginal(note.Line, note.Column);
        const TabText::TextPlace end = conversion.Tab->ToOriginal(note.Line, note.EndColumn);
        list.push_back({{"line", start.Line},
                        {"column", start.Column},
                        {"end", std::max(end.Column, start.Column + 1)},
                        {"part", note.Part},
                        {"bar", note.Bar},
                        {"position", note.Position},
                        {"tick", note.Tick},
                        {"string", note.String}});
    }
    return list;
}

void TellPrepared(TabText::PreparedText prepared, Answer& answer) {
    answer.Object["prepared"] = {{"changes", TabText::ChangesText(prepared)},
                                 {"changedLines", prepared.Changes.size()}};
    answer.AddBlock(kPreparedBlock, std::move(prepared.Text));
}

void WriteFormats(const Request& request, const Formats::Conversion& conversion, Answer& answer) {
    for (const Formats::Format* format : request.Formats) {
        std::string why;
        std::string bytes = format->BytesOf(conversion, why);
        if (why.empty())
            answer.AddBlock(kFilePrefix + std::string(format->Name), std::move(bytes));
        else
            answer.Object["messages"].push_back(why);
    }
}

void TellConversion(const Request& request, const Formats::Conversion& conversion, Answer& answer) {
    answer.Object["lines"] = LinesJson(conversion);
    answer.Object["notes"] = NotesJson(conversion);
    answer.AddBlock(kJsonBlock, Formats::JsonText(conversion, {}));
    WriteFormats(request, conversion, answer);
}

} // namespace

PageConverter::PageConverter(const Opening::PluginFunctions& functions, fs::path folder)
    : m_Folder(std::move(folder)) {
    std::error_code failure;
    fs::create_directories(m_Folder, failure);
    m_WhyNotStarted = m_Plugin.Start(functions, m_Folder, false);
}

Opened PageConverter::Open(const Request& request, const std::optional<TabText::PreparedText>& prepared,
                           const fs::path& tab, Opening::OpeningWatcher& watcher) const {
    const std::string why =
        m_WhyNotStarted.empty() ? Opening::StoreRhythmLevel(m_Folder, request.RhythmLevel) : m_WhyNotStarted;
    if (!why.empty())
        return {Outcome::Failed, why};
    const Opening::TabOpener opener(m_Plugin, m_Folder, request.Layout, {}, watcher);
    // What changed nothing is told no differently than on the command line.
    return prepared && prepared->IsChanged() ? opener.OpenPrepared(*prepared, tab, request.Name)
                                             : opener.OpenTab(tab, request.Name);
}

Answer PageConverter::Convert(const Request& request, std::string_view text,
                              Opening::OpeningWatcher& watcher) const {
    Answer answer;
    answer.Object = {{"taken", false},           {"cancelled", false},       {"lines", Json::array()},
                     {"notes", Json::array()},   {"helpful", Json::array()}, {"prepared", nullptr},
                     {"messages", Json::array()}};
    std::optional<TabText::PreparedText> prepared;
    if (!request.Steps.empty())
        prepared = TabText::Prepare(text, request.Steps);
    else
        answer.Object["helpful"] = TabText::StepsThatWouldHelp(text);
    const TextFile file(m_Folder, prepared ? std::string_view(prepared->Text) : text);
    const Opened opened = file.IsWritten() ? Open(request, prepared, file.Path(), watcher)
                                           : Opened(Outcome::Failed, "no room for a temporary file");
    if (prepared)
        TellPrepared(std::move(*prepared), answer);
    for (const std::string& message : opened.Messages)
        answer.Object["messages"].push_back(Score::ToUtf8(message));
    answer.Object["taken"] = opened.Conversion.has_value();
    answer.Object["cancelled"] = opened.Ended == Outcome::Cancelled;
    if (opened.Conversion)
        TellConversion(request, *opened.Conversion, answer);
    else
        answer.AddBlock(kJsonBlock, Formats::RefusalJson(request.Name, {}, opened.Reason));
    return answer;
}

Answer Describe() {
    Answer answer;
    Json formats = Json::array();
    for (const Formats::Format& format : Formats::AllFormats())
        formats.push_back({{"name", format.Name},
                           {"extension", format.Extension},
                           {"description", format.Description},
                           {"isText", format.IsText}});
    Json steps = Json::array();
    for (const TabText::PreparationStep& step : TabText::AllPreparationSteps())
        if (Request::IsStepOfOneText(step))
            steps.push_back(
                {{"name", step.Name}, {"does", step.Does}, {"isOnByDefault", step.IsOnByDefault}});
    Json kinds = Json::array();
    for (const Explain::RecognisedName& kind : Explain::AllRecognised())
        kinds.push_back({{"id", kind.Id}, {"name", kind.Name}, {"sign", std::string(1, kind.Sign)}});
    answer.Object = {{"version", FRETLINE_VERSION},
                     {"formats", std::move(formats)},
                     {"steps", std::move(steps)},
                     {"kinds", std::move(kinds)}};
    return answer;
}

} // namespace Page
