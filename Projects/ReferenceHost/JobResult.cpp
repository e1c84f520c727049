#include "Projects/ReferenceHost/JobResult.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace ReferenceHost {

namespace {

void Append(std::string& bytes, const std::string& text) {
    const std::uint64_t size = text.size();
    bytes.append(reinterpret_cast<const char*>(&size), sizeof size).append(text);
}

bool Take(std::string_view& bytes, std::string& text) {
    std::uint64_t size = 0;
    if (bytes.size() < sizeof size)
        return false;
    std::memcpy(&size, bytes.data(), sizeof size);
    bytes.remove_prefix(sizeof size);
    if (bytes.size() < size)
        return false;
    text = bytes.substr(0, size);
    bytes.remove_prefix(size);
    return true;
}

} // namespace

JobResult JobResult::OfOutput(std::string output) {
    JobResult result;
    result.Output = std::move(output);
    return result;
}

void JobResult::Add(const JobResult& other) {
    Output += other.Output;
    Errors += other.Errors;
    IsDoubtful = IsDoubtful || other.IsDoubtful;
    if (Ended == Status::Done || other.Ended == Status::Cancelled)
        Ended = other.Ended;
    if (Reason.empty())
        Reason = other.Reason;
}

std::string JobResult::ToBytes() const {
    std::string bytes{static_cast<char>(Ended), static_cast<char>(IsDoubtful)};
    Append(bytes, Output);
    Append(bytes, Errors);
    Append(bytes, Reason);
    return bytes;
}

JobResult JobResult::FromBytes(std::string_view bytes) {
    JobResult result;
    result.Ended = Status::Failed;
    constexpr std::size_t kHead = 2;
    if (bytes.size() < kHead)
        return result;
    const auto ended = static_cast<Status>(bytes[0]);
    result.IsDoubtful = bytes[1] != 0;
    bytes.remove_prefix(kHead);
    if (Take(bytes, result.Output) && Take(bytes, result.Errors) && Take(bytes, result.Reason))
        result.Ended = ended;
    return result;
}

} // namespace ReferenceHost
