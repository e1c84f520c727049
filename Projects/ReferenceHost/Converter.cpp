#include "Projects/ReferenceHost/Converter.h"

#include "Projects/Explain/Explanation.h"
#include "Projects/Explain/WhyNot.h"
#include "Projects/Formats/Formats.h"
#include "Projects/Formats/Json.h"
#include "Projects/Opening/WholeFile.h"
#include "Projects/ReferenceHost/ProgressWatcher.h"
#include "Projects/ReferenceHost/ScoreFile.h"
#include "Projects/ReferenceHost/Summary.h"
#include "Projects/ReferenceHost/Terminal.h"
#include "Shared/Utils/Exceptions.h"

#include <algorithm>
#include <new>

namespace ReferenceHost {

namespace fs = std::filesystem;

using Opening::ReadWholeFile;
using Status = JobResult::Status;
using Printing = CommandLine::Printing;

namespace {

// What would tidy the text up, as a sentence; nothing for a tidy one.
std::string HelpOfPreparation(const std::optional<std::string>& text) {
    std::string names;
    for (const char* name : text ? TabText::StepsThatWouldHelp(*text) : std::vector<const char*>())
        names += (names.empty() ? "" : ", ") + std::string(name);
    return names.empty() ? names : "--prepare would help: " + names;
}

// Empty when it went well, else a sentence that says what is wrong. What goes to standard output is appended
// to `output`.
std::string WriteTarget(const Formats::Conversion& conversion, const Target& target, std::string& output) {
    std::string why;
    std::optional<ScoreFile> file;
    const auto take = [&](std::string_view piece) {
        if (target.File.empty()) {
            output += piece;
            return;
        }
        if (!file)
            file.emplace(target.File);
        file->Write(piece);
    };
    target.Format->Write(conversion, take, why);
    if (!why.empty())
        return conversion.Source + " cannot be written as " + std::string(target.Format->Name) + ": " + why;
    return file ? file->Finish() : std::string();
}

// What is asked of a score for what the command line prints of it.
Formats::Wanted WantedToPrint(Printing prints) {
    const bool isRead = prints == Printing::Summary || prints == Printing::Json;
    return {.Bytes = prints == Printing::Tree, .Music = isRead};
}

// What --prepare=show prints of them.
std::string TextOf(const std::vector<TabText::PreparedPart>& parts) {
    std::string text;
    for (const TabText::PreparedPart& part : parts)
        text += (part.Name.empty() ? "" : "==== " + part.Name + " ====\n") + part.Text.Text;
    return text;
}

} // namespace

Converter::Converter(const CommandLine& line, const TargetPlan& plan, const Opening::Plugin& plugin,
                     fs::path configFolder, const RunFolder& folder, bool showsProgress)
    : m_Line(line), m_Plan(plan), m_Plugin(plugin), m_ConfigFolder(std::move(configFolder)), m_Folder(folder),
      m_ShowsProgress(showsProgress) {}

JobResult Converter::Convert(const Input& input, const std::vector<Target>& targets) const {
    try {
        return ConvertInput(input, targets);
    } catch (const std::exception&) {
        return TellRefusal(input, {}, Opened(Status::Failed, WhyItBrokeOff()));
    }
}

std::string Converter::WhyItBrokeOff() {
    constexpr const char* kTooLarge = "there is not enough memory for it";
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return kTooLarge;
    } catch (const Nvr::OutOfMemoryException&) {
        return kTooLarge;
    } catch (const std::exception& failure) {
        return std::string("its conversion broke off: ") + failure.what();
    }
}

JobResult Converter::ConvertInput(const Input& input, const std::vector<Target>& targets) const {
    std::vector<TabText::PreparedPart> parts;
    if (!m_Line.Preparation.empty() && input.What != Input::Kind::Score)
        parts = Prepare(input);
    if (!parts.empty() && m_Line.ShowsPrepared)
        return JobResult::OfOutput(TextOf(parts));
    if (parts.size() > 1)
        return ConvertParts(input, targets, parts);
    std::optional<TemporaryTab> name;
    const bool isChanged = !parts.empty() && parts.front().Text.IsChanged();
    const Formats::Wanted wanted = WantedFor(targets);
    Opened opened =
        isChanged ? OpenPrepared(parts.front().Text, input, wanted, name) : Open(input, wanted, name);
    if (!opened.Conversion && opened.Ended != Status::Cancelled && m_Line.Preparation.empty())
        opened.Reason += HelpForRefused(input, name);
    return Finish(input, {}, opened, targets);
}

std::string Converter::HelpForRefused(const Input& input, const std::optional<TemporaryTab>& name) const {
    // A stream is there once.
    if (input.What == Input::Kind::Score || (input.What == Input::Kind::Stream && !name))
        return {};
    const auto text = ReadWholeFile(name ? name->Path() : input.Path);
    const std::string help = HelpOfPreparation(text);
    if (help.empty())
        return {};
    const TemporaryTab tab = TemporaryTab::Write(m_Folder, "prepared", TabText::Prepare(*text).Text);
    return !tab.Path().empty() && Explain::HoldsStave(tab.Path()) ? "; " + help : std::string();
}

Formats::Wanted Converter::WantedFor(const std::vector<Target>& targets) const {
    Formats::Wanted wanted = WantedToPrint(m_Line.Prints);
    for (const Target& target : targets)
        wanted.Add(target.Format->From);
    return wanted;
}

std::string Converter::WhyNotInParts(const Input& input, const std::vector<Target>& targets,
                                     const std::vector<TabText::PreparedPart>& parts) const {
    const auto isStandardOutput = [](const Target& target) { return target.File.empty(); };
    if (std::any_of(targets.begin(), targets.end(), isStandardOutput))
        return std::to_string(parts.size()) + " parts cannot go to standard output together";
    for (const TabText::PreparedPart& part : parts)
        for (const Target& target : TargetsOfPart(targets, part.Name))
            if (std::string why = m_Plan.WhyNot(target, input); !why.empty())
                return why;
    return {};
}

JobResult Converter::ConvertParts(const Input& input, const std::vector<Target>& targets,
                                  const std::vector<TabText::PreparedPart>& parts) const {
    if (const std::string why = WhyNotInParts(input, targets, parts); !why.empty())
        return TellRefusal(input, {}, Opened(Status::Failed, why));
    JobResult all;
    for (const TabText::PreparedPart& part : parts) {
        std::optional<TemporaryTab> name;
        Opened opened = OpenPrepared(part.Text, input, WantedFor(targets), name);
        if (opened.Conversion) {
            opened.Conversion->Part = part.Name;
            opened.Conversion->Title = NameOfPart(opened.Conversion->Title, part.Name);
        }
        all.Add(Finish(input, part.Name, opened, TargetsOfPart(targets, part.Name)));
        if (all.Ended == Status::Cancelled)
            break;
    }
    return all;
}

JobResult Converter::Finish(const Input& input, const std::string& part, const Opened& opened,
                            const std::vector<Target>& targets) const {
    if (!opened.Conversion)
        return TellRefusal(input, part, opened);
    JobResult result;
    if (m_Line.Verbose)
        for (const std::string& message : opened.Messages)
            result.Errors += NameOfPart(input.Path.string(), part) + ": " + message + "\n";
    const std::vector<std::string> files = WriteTargets(*opened.Conversion, targets, result);
    if (m_Line.IsStrict)
        result.IsDoubtful = !opened.Conversion->GetDoubts().empty();
    (m_Line.WritesToStandardOutput() ? result.Errors : result.Output) += Printed(input, opened, files);
    return result;
}

Converter::Opened Converter::Open(const Input& input, Formats::Wanted wanted,
                                  std::optional<TemporaryTab>& name) const {
    switch (input.What) {
    case Input::Kind::Score:
        return Opening::TabOpener::OpenScore(input.Path, wanted);
    case Input::Kind::OtherText:
        name = TemporaryTab::NameFor(m_Folder, input.Path);
        return OpenTab(name->Path(), input.Path, wanted);
    case Input::Kind::Stream: {
        const auto bytes = ReadWholeFile(input.IsStandardInput() ? fs::path("/dev/stdin") : input.Path);
        if (!bytes)
            return Opened(Status::Refused, "cannot be read");
        name = TemporaryTab::Write(m_Folder, input.Relative.stem().string(), *bytes);
        if (name->Path().empty())
            return Opened(Status::Failed, "no room for a temporary file");
        return OpenTab(name->Path(), input.Path, wanted);
    }
    default:
        return OpenTab(fs::absolute(input.Path), input.Path, wanted);
    }
}

std::vector<TabText::PreparedPart> Converter::Prepare(const Input& input) const {
    const auto bytes = ReadWholeFile(input.IsStandardInput() ? fs::path("/dev/stdin") : input.Path);
    if (!bytes)
        return {};
    return TabText::PrepareParts(*bytes, m_Line.Preparation);
}

Converter::Opened Converter::OpenPrepared(const TabText::PreparedText& prepared, const Input& input,
                                          Formats::Wanted wanted, std::optional<TemporaryTab>& name) const {
    name = TemporaryTab::Write(m_Folder, input.Relative.stem().string(), prepared.Text);
    if (name->Path().empty())
        return Opened(Status::Failed, "no room for a temporary file");
    ProgressWatcher watcher(m_ShowsProgress);
    return Opener(wanted, watcher).OpenPrepared(prepared, name->Path(), input.Path);
}

Converter::Opened Converter::OpenTab(const fs::path& tab, const fs::path& source,
                                     Formats::Wanted wanted) const {
    std::error_code failure;
    const std::uintmax_t size = fs::file_size(tab, failure);
    m_Folder.MakeReadyFor(failure ? 0 : size);
    ProgressWatcher watcher(m_ShowsProgress);
    return Opener(wanted, watcher).OpenTab(tab, source);
}

Opening::TabOpener Converter::Opener(Formats::Wanted wanted, Opening::OpeningWatcher& watcher) const {
    return {m_Plugin, m_ConfigFolder, m_Line.Layout, wanted, watcher};
}

JobResult Converter::TellRefusal(const Input& input, const std::string& part, const Opened& opened) const {
    const std::string name = NameOfPart(input.Path.string(), part);
    JobResult result;
    result.Ended = opened.Ended;
    result.Reason = opened.Reason;
    for (const std::string& message : opened.Messages)
        result.Errors.append(name).append(": ").append(message).append("\n");
    result.Errors += Terminal::Complaint(name + ": " + opened.Reason);
    if (m_Line.Prints == Printing::Json)
        result.Output = Formats::RefusalJson(input.Path.string(), part, opened.Reason) + "\n";
    return result;
}

std::vector<std::string> Converter::WriteTargets(const Formats::Conversion& conversion,
                                                 const std::vector<Target>& targets,
                                                 JobResult& result) const {
    std::vector<std::string> files;
    for (const Target& target : targets) {
        std::error_code failure;
        if (m_Line.KeepsExisting && !target.File.empty() && fs::exists(target.File, failure)) {
            result.Errors += target.File.string() + " is there already and stays as it is\n";
            continue;
        }
        if (const std::string why = WriteTarget(conversion, target, result.Output); !why.empty()) {
            result.Ended = Status::Failed;
            result.Reason = why;
            result.Errors += Terminal::Complaint(why);
        } else if (!target.File.empty()) {
            files.push_back(target.File.string());
        }
    }
    return files;
}

std::string Converter::Printed(const Input& input, const Opened& opened,
                               const std::vector<std::string>& files) const {
    const Formats::Conversion& conversion = *opened.Conversion;
    const std::string name = NameOfPart(input.Path.string(), conversion.Part);
    switch (m_Line.Prints) {
    case Printing::Nothing:
        return {};
    case Printing::Tree:
        return conversion.GetTreeText();
    case Printing::Json:
        return Formats::JsonText(conversion, files) + "\n";
    case Printing::Explanation:
        if (const TabText::TabReading* reading = conversion.GetReading())
            return (opened.Changes.empty() ? ""
                                           : "Prepared:\n" + opened.Changes +
                                                 "\nThe prepared text, by the numbers of the original:\n") +
                   Explain::ExplanationText(Explain::Explanation::Of(*reading, conversion.Tab->Map),
                                            Terminal::HasColour());
        return name + ": only a tab can be explained, a finished score no longer knows its text\n";
    case Printing::Summary:
        break;
    }
    std::string text = Terminal::Bold(name) + "\n";
    if (input.What == Input::Kind::OtherText)
        text += SummaryLine("Opened as", "a tab, whatever its extension says");
    text += SummaryText(conversion.GetMusic()) + PartsSummary(conversion.GetParts());
    if (!m_Line.Verbose)
        text += MessageSummary(opened.Messages);
    if (!opened.Changes.empty())
        text += SummaryLine("Prepared",
                            std::to_string(std::count(opened.Changes.begin(), opened.Changes.end(), '@')) +
                                " lines (--prepare=show, --explain)");
    else if (m_Line.Preparation.empty() && conversion.Tab) {
        if (const std::string help = HelpOfPreparation(ReadWholeFile(conversion.Tab->File)); !help.empty())
            text += SummaryLine("Untidy", help);
    }
    text += DoubtSummary(conversion.GetDoubts(), m_Line.TellsDoubts);
    std::string row = "Written";
    for (const std::string& file : files) {
        text += SummaryLine(row, file);
        row.clear();
    }
    // Beside a stream there is no place that a user would look at.
    if (input.What == Input::Kind::Stream && m_Line.Outputs.empty() && m_Line.ToFormats.empty())
        text += SummaryLine("Written", "nothing: -o NAME or --to FORMAT says what is to be");
    return text;
}

} // namespace ReferenceHost
