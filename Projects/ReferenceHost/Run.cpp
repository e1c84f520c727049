#include "Projects/ReferenceHost/Run.h"

#include "Projects/ReferenceHost/Converter.h"
#include "Projects/ReferenceHost/JsonLines.h"
#include "Projects/ReferenceHost/PluginLibrary.h"
#include "Projects/ReferenceHost/ProgressWatcher.h"
#include "Projects/ReferenceHost/RunOptions.h"
#include "Projects/ReferenceHost/RunProgress.h"
#include "Projects/ReferenceHost/Terminal.h"
#include "Projects/ReferenceHost/Workers.h"
#include "Projects/TabText/Preparation.h"

#include <algorithm>
#include <iostream>

namespace ReferenceHost {

namespace fs = std::filesystem;

namespace {

using Status = JobResult::Status;

// The numbers of the inputs from some number on, as jobs.
class InputNumbers : public JobSource {
public:
    InputNumbers(std::size_t first, std::size_t end) : m_Next(first), m_End(end) {}

    bool IsReady() override { return true; }
    int Descriptor() const override { return -1; }
    bool HasAtHand(std::size_t count) override { return m_End - m_Next >= count; }
    bool Next(std::string& job) override {
        if (m_Next == m_End)
            return false;
        job = std::to_string(m_Next++);
        return true;
    }

private:
    std::size_t m_Next;
    std::size_t m_End;
};

// What came of a run over many files.
struct Totals {
    std::size_t Done = 0;
    std::vector<std::string> Refusals;
    bool IsCancelled = false;
    bool IsDoubtful = false;

    int ExitCode() const {
        if (WasAskedToEnd())
            return kExitEnded;
        if (IsCancelled || WasInterrupted())
            return kExitCancelled;
        if (!Refusals.empty())
            return kExitSomeFailed;
        return IsDoubtful ? kExitDoubtful : kExitDone;
    }
};

class Runner {
public:
    explicit Runner(const CommandLine& line) : m_Line(line) {}

    int Run() {
        std::vector<std::string> problems;
        m_Inputs = FindInputs(m_Line.Inputs, problems);
        std::string mistake;
        m_Plan = PlanTargets(m_Line, m_Inputs, mistake);
        if (!mistake.empty())
            return Fail(mistake);
        for (const std::string& problem : problems) {
            Terminal::Complain(problem);
            m_Totals.Refusals.push_back(problem);
        }
        if (const std::string why = Prepare(); !why.empty())
            return Fail(why);
        CatchInterrupts();
        if (m_Line.ReadsJsonLines)
            ConvertLines();
        else
            ConvertFiles();
        TellTotals();
        return m_Totals.ExitCode();
    }

private:
    static int Fail(const std::string& sentence) {
        Terminal::Complain(sentence);
        return kExitUsage;
    }

    // Somebody is there, and nothing has been said about rhythms.
    bool Asks() const {
        const auto isTab = [](const Input& input) {
            return input.What == Input::Kind::Tab || input.What == Input::Kind::OtherText;
        };
        // Each part would ask by itself.
        const auto* const parts = TabText::FindPreparationStep("parts");
        const bool hasParts = std::find(m_Line.Preparation.begin(), m_Line.Preparation.end(), parts) !=
                              m_Line.Preparation.end();
        return !m_Line.Yes && !m_Line.RhythmLevel && !hasParts && !m_Line.ReadsJsonLines &&
               !m_Inputs.empty() && isTab(m_Inputs.front()) && !m_Line.WritesToStandardOutput() &&
               Terminal::CanAsk();
    }

    std::string Prepare() {
        if (m_Line.Remembers)
            if (std::string why = RememberLevel(m_Line); !why.empty())
                return why;
        return Asks() ? std::string() : LoadUnattended();
    }

    std::string LoadUnattended() {
        if (std::string why = LayOutOptions(m_Line, m_Folder); !why.empty())
            return why;
        return m_Library.Load(m_Line.Plugin, m_Folder.Path(), false);
    }

    // The first tab is opened with the dialog; what was answered holds for the rest. False when nothing more
    // is to be done.
    bool ConvertFirstWithDialog() {
        std::error_code failure;
        const fs::path folder = fs::absolute(m_Line.ConfigFolder);
        fs::create_directories(folder, failure);
        PluginLibrary library;
        if (const std::string why = library.Load(m_Line.Plugin, folder, true); !why.empty()) {
            m_Totals.Refusals.push_back(why);
            Terminal::Complain(why);
            return false;
        }
        Terminal::SayWhatIsAskedFor(m_Inputs.front().Path.string(), m_Inputs.size() - 1);
        if (!Tell(Converter(m_Line, m_Plan, library.GetPlugin(), folder, m_Folder, true)
                      .Convert(m_Inputs[0], m_Plan.Targets[0])))
            return false;
        m_First = 1;
        return true;
    }

    void ConvertFiles() {
        if (!m_Library.IsLoaded()) {
            if (!ConvertFirstWithDialog() || m_First == m_Inputs.size())
                return;
            if (const std::string why = LoadUnattended(); !why.empty()) {
                Terminal::Complain(why);
                m_Totals.Refusals.push_back(why);
                return;
            }
        }
        const std::size_t count = m_Inputs.size() - m_First;
        if (count > 1)
            m_Progress.Begin(count);
        const Converter converter(m_Line, m_Plan, m_Library.GetPlugin(), m_Folder.Path(), m_Folder,
                                  count == 1);
        InputNumbers numbers(m_First, m_Inputs.size());
        const int processes =
            static_cast<int>(std::min<std::size_t>(static_cast<std::size_t>(m_Line.Jobs), count));
        m_NextToTell = m_First;
        RunJobs(
            numbers, processes,
            [&](const std::string& job) {
                const std::size_t index = std::stoul(job);
                return converter.Convert(m_Inputs[index], m_Plan.Targets[index]);
            },
            [&](const JobResult& result) { return TellOfInput(result); });
        m_Progress.End();
    }

    void ConvertLines() {
        const Converter converter(m_Line, m_Plan, m_Library.GetPlugin(), m_Folder.Path(), m_Folder, false);
        StandardInputLines lines;
        RunJobs(
            lines, m_Line.Jobs, [&](const std::string& job) { return converter.ConvertLine(job); },
            [&](const JobResult& result) {
                std::cout << result.Output << std::flush;
                // A program that reads line by line must find one for each of its own.
                if (result.Output.empty())
                    std::cout << R"({"id":null,"taken":false,"reason":")" << result.Reason << "\"}\n"
                              << std::flush;
                m_Totals.IsCancelled = m_Totals.IsCancelled || result.Ended == Status::Cancelled;
                return static_cast<bool>(std::cout) && !m_Totals.IsCancelled && !WasInterrupted();
            });
    }

    bool TellOfInput(const JobResult& result) {
        const Input& input = m_Inputs[m_NextToTell++];
        m_Progress.Clear();
        if (result.Ended == Status::Failed && result.Errors.empty())
            Terminal::Complain(input.Path.string() + ": " + result.Reason);
        const bool goesOn = Tell(result, input.Path.string());
        m_Progress.Step();
        return goesOn;
    }

    bool Tell(const JobResult& result) { return Tell(result, m_Inputs.front().Path.string()); }

    // False when the run is to end.
    bool Tell(const JobResult& result, const std::string& name) {
        std::cerr << result.Errors;
        std::cout << result.Output << std::flush;
        m_Totals.IsDoubtful = m_Totals.IsDoubtful || result.IsDoubtful;
        if (result.Ended == Status::Done)
            ++m_Totals.Done;
        else if (result.Ended == Status::Cancelled)
            m_Totals.IsCancelled = true;
        else
            m_Totals.Refusals.push_back(name + ": " + result.Reason);
        return !m_Totals.IsCancelled && !WasInterrupted() && static_cast<bool>(std::cout);
    }

    void TellTotals() {
        if (m_Inputs.size() < 2 || m_Line.Prints == CommandLine::Printing::Nothing)
            return;
        const bool isForPeople = m_Line.Prints == CommandLine::Printing::Summary;
        std::ostream& stream = isForPeople && !m_Line.WritesToStandardOutput() ? std::cout : std::cerr;
        stream << m_Inputs.size() << " files: " << m_Totals.Done << " done, " << m_Totals.Refusals.size()
               << " refused or failed\n";
        for (const std::string& refusal : m_Totals.Refusals)
            stream << "  " << refusal << "\n";
    }

    const CommandLine& m_Line;
    RunFolder m_Folder;
    PluginLibrary m_Library;
    std::vector<Input> m_Inputs;
    TargetPlan m_Plan;
    std::size_t m_First = 0;
    std::size_t m_NextToTell = 0;
    RunProgress m_Progress;
    Totals m_Totals;
};

} // namespace

int Run(const CommandLine& line) {
    return Runner(line).Run();
}

} // namespace ReferenceHost
