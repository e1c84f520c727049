#pragma once

#include "Projects/Opening/TabOpener.h"

#include <string>
#include <string_view>

namespace ReferenceHost {

/// What came of one job, to be told in the order of the jobs. Travels from a worker to its caller as bytes.
struct JobResult {
    using Status = Opening::Outcome;

    Status Ended = Status::Done;
    /// For standard output.
    std::string Output;
    /// For the error stream.
    std::string Errors;
    /// Something that was read is doubtful; known only where it was asked for.
    bool IsDoubtful = false;
    /// Why a file was refused, said again at the end of a run over many.
    std::string Reason;

    /// A job that is done and has this for standard output.
    static JobResult OfOutput(std::string output);

    /// Joins what came of another piece of the same job: what is printed follows, and what went wrong stays.
    void Add(const JobResult& other);

    std::string ToBytes() const;
    /// The reverse; what is no result is a failed one.
    static JobResult FromBytes(std::string_view bytes);
};

} // namespace ReferenceHost
