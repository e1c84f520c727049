#include "Projects/ReferenceHost/Workers.h"

#include "Projects/ReferenceHost/ProgressWatcher.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <deque>
#include <fcntl.h>
#include <iostream>
#include <list>
#include <map>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace ReferenceHost {

namespace {

// How far jobs may be ahead of the first one that has not ended, for each process.
constexpr std::size_t kJobsAhead = 16;
// A process has its next job at hand when so many more are there for each.
constexpr std::size_t kManyJobs = 2;
// What a pipe takes where nobody says how much.
constexpr std::size_t kSmallestPipe = 4096;

bool WriteAll(int file, const void* bytes, std::size_t size) {
    const auto* from = static_cast<const char*>(bytes);
    while (size != 0) {
        const ssize_t written = write(file, from, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        from += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool ReadAll(int file, void* bytes, std::size_t size) {
    auto* to = static_cast<char*>(bytes);
    while (size != 0) {
        const ssize_t count = read(file, to, size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        to += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

bool WriteText(int file, const std::string& text) {
    const std::uint64_t size = text.size();
    return WriteAll(file, &size, sizeof size) && WriteAll(file, text.data(), text.size());
}

bool ReadText(int file, std::string& text) {
    std::uint64_t size = 0;
    if (!ReadAll(file, &size, sizeof size))
        return false;
    text.resize(size);
    return ReadAll(file, text.data(), text.size());
}

struct Job {
    std::size_t Number = 0;
    std::string Text;
};

std::size_t CapacityOfPipe(int file) {
    const int size = fcntl(file, F_GETPIPE_SZ);
    return size > 0 ? static_cast<std::size_t>(size) : kSmallestPipe;
}

// One process and the two pipes to it.
class Worker {
public:
    // The new process sees nothing of the others: it must not hold their pipes open.
    Worker(const JobFunction& work, const std::list<Worker>& others) {
        int jobs[2];
        int results[2];
        if (pipe(jobs) != 0)
            return;
        if (pipe(results) != 0) {
            ClosePair(jobs);
            return;
        }
        std::cout.flush();
        m_Process = fork();
        if (m_Process == 0) {
            for (const Worker& other : others)
                other.Close();
            close(jobs[1]);
            close(results[0]);
            Serve(jobs[0], results[1], work);
        }
        close(jobs[0]);
        close(results[1]);
        m_Jobs = jobs[1];
        m_Results = results[0];
        m_RoomForNext = CapacityOfPipe(m_Jobs) / 2;
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker() {
        Close();
        if (m_Process > 0)
            waitpid(m_Process, nullptr, 0);
    }

    bool IsRunning() const { return m_Process > 0; }
    int ResultDescriptor() const { return m_Results; }
    bool IsBusy() const { return !m_Given.empty(); }
    // Whether it could have this job as its next one. With one that does not fit into the pipe its giver
    // would wait for the process, and the process for somebody who takes its result.
    bool CouldHaveNext(const Job& job) const {
        return m_Given.size() == 1 && job.Text.size() < m_RoomForNext;
    }
    // REQUIRES: IsBusy. The job that it is at.
    std::size_t JobNumber() const { return m_Given.front().Number; }

    void Give(Job job) {
        // Where nobody is there any more, that is seen when the result should come.
        WriteText(m_Jobs, job.Text);
        m_Given.push_back(std::move(job));
    }
    // After its death: those that it was not at yet.
    std::deque<Job> TakeBack() { return std::exchange(m_Given, {}); }
    // False when the process has died.
    bool Take(JobResult& result) {
        m_Given.pop_front();
        std::string bytes;
        if (!ReadText(m_Results, bytes))
            return false;
        result = JobResult::FromBytes(bytes);
        return true;
    }
    void Interrupt() const { kill(m_Process, SIGINT); }
    // Waits for a process that has died; a few words on how.
    std::string WaitForDeath() {
        int status = 0;
        waitpid(m_Process, &status, 0);
        m_Process = -1;
        if (WIFSIGNALED(status))
            return std::string("signal ") + strsignal(WTERMSIG(status));
        return "exit code " + std::to_string(WEXITSTATUS(status));
    }

private:
    static void ClosePair(const int (&pair)[2]) {
        close(pair[0]);
        close(pair[1]);
    }

    [[noreturn]] static void Serve(int jobs, int results, const JobFunction& work) {
        std::string job;
        while (ReadText(jobs, job) && WriteText(results, work(job).ToBytes())) {
        }
        _exit(0);
    }

    void Close() const {
        if (m_Jobs >= 0)
            close(m_Jobs);
        if (m_Results >= 0)
            close(m_Results);
    }

    pid_t m_Process = -1;
    int m_Jobs = -1;
    int m_Results = -1;
    std::size_t m_RoomForNext = 0;
    // The one that it is at, and its next.
    std::deque<Job> m_Given;
};

// The caller's side: hands out jobs, and tells results in order.
class Foreman {
public:
    Foreman(JobSource& source, int processes, const JobFunction& work, const ResultFunction& tell)
        : m_Source(source), m_Work(work), m_Tell(tell) {
        for (int i = 0; i < processes; ++i)
            StartWorker();
    }

    void Run() {
        while (!m_Workers.empty()) {
            HandOut();
            if (!IsWorkUnderWay() && m_IsSourceEmpty && m_ToGive.empty())
                return;
            Wait();
            TellInOrder();
        }
    }

private:
    void StartWorker() {
        m_Workers.emplace_back(m_Work, m_Workers);
        if (!m_Workers.back().IsRunning())
            m_Workers.pop_back();
    }

    bool IsWorkUnderWay() const {
        for (const Worker& worker : m_Workers)
            if (worker.IsBusy())
                return true;
        return false;
    }

    bool HasRoomAhead() const { return m_NextJob - m_NextResult < kJobsAhead * m_Workers.size(); }

    void HandOut() {
        for (Worker& worker : m_Workers)
            if (!worker.IsBusy() && HasJob())
                GiveTo(worker);
        for (Worker& worker : m_Workers)
            if (m_Source.HasAtHand(kManyJobs * m_Workers.size()) && HasJob() &&
                worker.CouldHaveNext(m_ToGive.front()))
                GiveTo(worker);
    }

    // Fetches the next job unless there is one.
    bool HasJob() {
        if (m_ToGive.empty() && !m_IsSourceEmpty && HasRoomAhead() && m_Source.IsReady()) {
            Job job{m_NextJob, {}};
            m_IsSourceEmpty = !m_Source.Next(job.Text);
            if (!m_IsSourceEmpty) {
                m_ToGive.push_back(std::move(job));
                ++m_NextJob;
            }
        }
        return !m_ToGive.empty();
    }

    void GiveTo(Worker& worker) {
        worker.Give(std::move(m_ToGive.front()));
        m_ToGive.pop_front();
    }

    bool WantsSource() const {
        bool isSomeoneIdle = false;
        for (const Worker& worker : m_Workers)
            isSomeoneIdle = isSomeoneIdle || !worker.IsBusy();
        return isSomeoneIdle && !m_IsSourceEmpty && HasRoomAhead();
    }

    void Wait() {
        std::vector<pollfd> descriptors;
        for (const Worker& worker : m_Workers)
            descriptors.push_back({worker.IsBusy() ? worker.ResultDescriptor() : -1, POLLIN, 0});
        descriptors.push_back({WantsSource() ? m_Source.Descriptor() : -1, POLLIN, 0});
        if (poll(descriptors.data(), descriptors.size(), -1) < 0) {
            if (WasInterrupted())
                Stop();
            return;
        }
        std::size_t index = 0;
        int died = 0;
        for (auto worker = m_Workers.begin(); worker != m_Workers.end(); ++index) {
            if (descriptors[index].revents == 0 || TakeResult(*worker)) {
                ++worker;
                continue;
            }
            worker = m_Workers.erase(worker);
            ++died;
        }
        for (; died > 0 && !m_IsStopped; --died)
            StartWorker();
    }

    // False when the worker has died.
    bool TakeResult(Worker& worker) {
        JobResult& result = m_Results[worker.JobNumber()];
        if (worker.Take(result))
            return true;
        result.Ended = JobResult::Status::Failed;
        result.Reason = "its conversion broke off (" + worker.WaitForDeath() + ")";
        if (!m_IsStopped)
            for (Job& job : worker.TakeBack())
                m_ToGive.push_back(std::move(job));
        return false;
    }

    void TellInOrder() {
        for (auto first = m_Results.begin(); first != m_Results.end() && first->first == m_NextResult;
             first = m_Results.erase(first), ++m_NextResult)
            if (!m_IsStopped && !m_Tell(first->second))
                Stop();
    }

    void Stop() {
        m_IsSourceEmpty = true;
        m_IsStopped = true;
        m_ToGive.clear();
        for (const Worker& worker : m_Workers)
            if (worker.IsBusy())
                worker.Interrupt();
    }

    JobSource& m_Source;
    const JobFunction& m_Work;
    const ResultFunction& m_Tell;
    std::list<Worker> m_Workers;
    // Taken from the source, or back from a process that died.
    std::deque<Job> m_ToGive;
    // By number: those that wait for an earlier one.
    std::map<std::size_t, JobResult> m_Results;
    std::size_t m_NextJob = 0;
    std::size_t m_NextResult = 0;
    bool m_IsSourceEmpty = false;
    bool m_IsStopped = false;
};

} // namespace

void RunJobs(JobSource& source, int processes, const JobFunction& work, const ResultFunction& tell) {
    if (processes > 1) {
        Foreman(source, processes, work, tell).Run();
        return;
    }
    std::string job;
    while (source.Next(job))
        if (!tell(work(job)))
            return;
}

} // namespace ReferenceHost
