#pragma once

#include "Projects/ReferenceHost/JobResult.h"

#include <functional>
#include <string>

namespace ReferenceHost {

/// Where jobs come from, one after the other. A job is a text that its worker understands.
class JobSource {
public:
    virtual ~JobSource() = default;
    /// Whether Next would answer at once; otherwise the file descriptor to wait for.
    virtual bool IsReady() = 0;
    virtual int Descriptor() const = 0;
    /// Whether about so many jobs are there now, for Next to give one after the other.
    virtual bool HasAtHand(std::size_t count) = 0;
    /// False at the end. Waits where the source is not ready.
    virtual bool Next(std::string& job) = 0;
};

/// Does one job; called in a process of its own.
using JobFunction = std::function<JobResult(const std::string& job)>;
/// Hears of a job's end, in the order of the jobs. False ends the run: no more jobs are begun, and those
/// under way are told to stop.
using ResultFunction = std::function<bool(const JobResult& result)>;

/// Does all jobs of a source in as many processes, each a copy of this one at the time of the call: what is
/// loaded before is loaded once. A process that dies costs the job that it was at, which is a failed one, and
/// is replaced. With one process the jobs are done in this one.
///
/// As long as there are many jobs a process has its next one at hand before it has done the last: on a busy
/// machine it would wait for this process to be given a turn.
///
/// REQUIRES: the signal SIGPIPE is ignored; a worker that has died is noticed when it is read from.
///
/// Holds at most a fixed number of results per process, so that memory does not grow with the number of jobs.
void RunJobs(JobSource& source, int processes, const JobFunction& work, const ResultFunction& tell);

} // namespace ReferenceHost
