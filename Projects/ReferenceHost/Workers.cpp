#include "Projects/ReferenceHost/Workers.h"

#include "Projects/ReferenceHost/ProgressWatcher.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <iostream>
#include <list>
#include <map>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace ReferenceHost {

namespace {

// How far jobs may be ahead of the first one that has not ended, for each process.
constexpr std::size_t kJobsAhead = 16;

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
    bool IsBusy() const { return m_IsBusy; }
    std::size_t JobNumber() const { return m_JobNumber; }

    bool Give(std::size_t number, const std::string& job) {
        m_JobNumber = number;
        m_IsBusy = true;
        return WriteText(m_Jobs, job);
    }
    // False when the process has died.
    bool Take(JobResult& result) {
        m_IsBusy = false;
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
    bool m_IsBusy = false;
    std::size_t m_JobNumber = 0;
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
            if (!IsWorkUnderWay() && m_IsSourceEmpty)
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
        for (Worker& worker : m_Workers) {
            std::string job;
            while (!worker.IsBusy() && !m_IsSourceEmpty && HasRoomAhead() && m_Source.IsReady()) {
                if (m_Source.Next(job))
                    worker.Give(m_NextJob++, job);
                else
                    m_IsSourceEmpty = true;
            }
        }
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
        for (const Worker& worker : m_Workers)
            if (worker.IsBusy())
                worker.Interrupt();
    }

    JobSource& m_Source;
    const JobFunction& m_Work;
    const ResultFunction& m_Tell;
    std::list<Worker> m_Workers;
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
