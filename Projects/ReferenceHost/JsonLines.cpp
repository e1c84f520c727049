#include "Projects/ReferenceHost/JsonLines.h"

#include "Projects/Formats/Formats.h"
#include "Projects/Formats/Json.h"
#include "Projects/ReferenceHost/Converter.h"
#include "Projects/ReferenceHost/ProgressWatcher.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace ReferenceHost {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kBlockSize = 65536;
constexpr const char* kDefaultName = "tab";

std::string Base64(std::string_view bytes) {
    static constexpr std::string_view kDigits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr std::size_t kGroup = 3;
    std::string text;
    text.reserve((bytes.size() + 2) / kGroup * 4);
    for (std::size_t i = 0; i < bytes.size(); i += kGroup) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < kGroup; ++k)
            group = group << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k <= kGroup; ++k)
            text += i + k <= bytes.size() ? kDigits[group >> (18 - 6 * k) & 63] : '=';
    }
    return text;
}

std::string Dumped(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

JobResult Refused(const Json& id, const std::string& reason) {
    JobResult result;
    result.Ended = JobResult::Status::Refused;
    result.Reason = reason;
    result.Output = Dumped({{"id", id}, {"taken", false}, {"reason", reason}});
    return result;
}

} // namespace

// What a line's text, or a part of it, gave: "taken", and the score in each format, or "reason".
struct Answer {
    Json Members = Json::object();
    JobResult::Status Ended = JobResult::Status::Done;

    void Refuse(JobResult::Status ended, const std::string& reason) {
        Ended = ended;
        Members = {{"taken", false}, {"reason", reason}};
    }

    // Puts the answer for one part beside the others; that for the whole, which has no name, stands alone.
    void Add(const std::string& part, const Answer& answer) {
        if (answer.Ended != JobResult::Status::Done)
            Ended = answer.Ended;
        if (part.empty()) {
            Members = answer.Members;
            return;
        }
        const bool isTaken = answer.Members["taken"] || Members.value("taken", false);
        Members["taken"] = isTaken;
        Json members{{"part", part}};
        members.update(answer.Members);
        Members["parts"].push_back(std::move(members));
    }

    JobResult ToLine(const Json& id) const {
        Json line{{"id", id}};
        line.update(Members);
        JobResult result;
        result.Ended = Ended;
        result.Reason = Members.value("reason", std::string());
        result.Output = Dumped(line);
        return result;
    }
};

namespace {

Answer AnswerOf(const Opening::Opened& opened, const CommandLine& line) {
    Answer answer;
    if (!opened.Conversion) {
        answer.Refuse(opened.Ended, opened.Reason);
        return answer;
    }
    answer.Members["taken"] = true;
    if (line.Prints == CommandLine::Printing::Json)
        answer.Members["score"] = Json::parse(Formats::JsonText(*opened.Conversion, {}));
    for (const Formats::Format* format : line.ToFormats) {
        std::string why;
        const std::string bytes = format->BytesOf(*opened.Conversion, why);
        if (!why.empty()) {
            answer.Refuse(JobResult::Status::Refused, why);
            return answer;
        }
        answer.Members[std::string(format->Name)] = format->IsText ? bytes : Base64(bytes);
    }
    return answer;
}

bool IsEmptyLine(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

} // namespace

bool StandardInputLines::IsReady() {
    for (PassOverEmptyLines(); !HasLine() && !m_IsAtEnd; PassOverEmptyLines()) {
        pollfd descriptor{STDIN_FILENO, POLLIN, 0};
        if (poll(&descriptor, 1, 0) <= 0)
            return false;
        FillOnce();
    }
    return true;
}

bool StandardInputLines::HasAtHand(std::size_t count) {
    std::size_t end = m_LineEnd;
    for (; count > 1 && end != std::string::npos; --count)
        end = m_Bytes.find('\n', end + 1);
    return end != std::string::npos;
}

int StandardInputLines::Descriptor() const {
    return STDIN_FILENO;
}

bool StandardInputLines::Next(std::string& job) {
    for (PassOverEmptyLines(); !HasLine() && !m_IsAtEnd; PassOverEmptyLines())
        FillOnce();
    job = TakeLine();
    return !IsEmptyLine(job);
}

void StandardInputLines::PassOverEmptyLines() {
    while (HasLine() && IsEmptyLine(std::string_view(m_Bytes).substr(m_Start, m_LineEnd - m_Start)))
        TakeLine();
}

std::string StandardInputLines::TakeLine() {
    const std::size_t end = HasLine() ? m_LineEnd : m_Bytes.size();
    std::string line = m_Bytes.substr(m_Start, end - m_Start);
    m_Start = std::min(end + 1, m_Bytes.size());
    m_LineEnd = m_Bytes.find('\n', m_Start);
    return line;
}

void StandardInputLines::FillOnce() {
    m_Bytes.erase(0, m_Start);
    m_Start = 0;
    std::array<char, kBlockSize> block{};
    const ssize_t count = read(STDIN_FILENO, block.data(), block.size());
    if (count < 0 && errno == EINTR)
        return;
    m_IsAtEnd = count <= 0;
    const std::size_t before = m_Bytes.size();
    if (count > 0)
        m_Bytes.append(block.data(), static_cast<std::size_t>(count));
    m_LineEnd = m_Bytes.find('\n', before);
}

JobResult Converter::ConvertLine(std::string_view line) const {
    Json id;
    try {
        const Json request = Json::parse(line, nullptr, false);
        if (request.is_object() && request.contains("id"))
            id = request["id"];
        if (!request.is_object() || !request.contains("text") || !request["text"].is_string())
            return Refused(id, R"(the line is no JSON object {"id":...,"text":...})");
        return AnswerText(request["text"].get<std::string>()).ToLine(id);
    } catch (const std::exception&) {
        JobResult result = Refused(id, WhyItBrokeOff());
        result.Ended = JobResult::Status::Failed;
        return result;
    }
}

Answer Converter::AnswerText(const std::string& text) const {
    Input input;
    input.Path = input.Relative = kDefaultName;
    std::vector<Target> targets;
    for (const Formats::Format* format : m_Line.ToFormats)
        targets.push_back({format, {}});
    const Formats::Wanted wanted = WantedFor(targets);
    Answer answer;
    if (m_Line.Preparation.empty()) {
        const TemporaryTab tab = TemporaryTab::Write(m_Folder, kDefaultName, text);
        if (tab.Path().empty())
            answer.Refuse(JobResult::Status::Refused, "no room for a temporary file");
        else
            answer = AnswerOf(OpenTab(tab.Path(), input.Path, wanted), m_Line);
        return answer;
    }
    for (const TabText::PreparedPart& part : TabText::PrepareParts(text, m_Line.Preparation)) {
        std::optional<TemporaryTab> tab;
        Opened opened = OpenPrepared(part.Text, input, wanted, tab);
        if (opened.Conversion)
            opened.Conversion->Part = part.Name;
        answer.Add(part.Name, AnswerOf(opened, m_Line));
    }
    return answer;
}

} // namespace ReferenceHost
