#include "Projects/ReferenceHost/Workers.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <unistd.h>
#include <vector>

using namespace ReferenceHost;

namespace {

class Numbers : public JobSource {
public:
    // Each followed by so many blanks.
    explicit Numbers(int count, std::size_t blanks) : m_Count(count), m_Blanks(blanks, ' ') {}
    bool IsReady() override { return true; }
    int Descriptor() const override { return -1; }
    bool HasAtHand(std::size_t count) override { return m_Next + static_cast<int>(count) <= m_Count; }
    bool Next(std::string& job) override {
        job = std::to_string(m_Next) + m_Blanks;
        return m_Next++ < m_Count;
    }
    int Taken() const { return m_Next; }

private:
    int m_Count;
    std::string m_Blanks;
    int m_Next = 0;
};

// What was told, in its order.
struct Told {
    std::string Outputs;
    int Failed = 0;
    std::string Reason;
};

Told RunNumbers(int count, int processes, const JobFunction& work, int stopAfter = -1,
                std::size_t blanks = 0) {
    std::signal(SIGPIPE, SIG_IGN);
    Numbers numbers(count, blanks);
    Told told;
    RunJobs(numbers, processes, work, [&](const JobResult& result) {
        told.Outputs += result.Output + " ";
        if (result.Ended == JobResult::Status::Failed) {
            ++told.Failed;
            told.Reason = result.Reason;
        }
        return --stopAfter != 0;
    });
    return told;
}

JobResult Echo(const std::string& job) {
    JobResult result;
    result.Output = job;
    return result;
}

} // namespace

TEST(Workers, TellResultsInTheOrderOfJobs) {
    std::string expected;
    for (int i = 0; i < 100; ++i)
        expected += std::to_string(i) + " ";
    const auto slowAtFirst = [](const std::string& job) {
        usleep(job == "0" || job == "17" ? 50000 : 10);
        return Echo(job);
    };
    for (const int processes : {1, 2, 5})
        EXPECT_EQ(expected, RunNumbers(100, processes, slowAtFirst).Outputs) << processes;
}

TEST(Workers, AProcessThatDiesCostsItsJobAlone) {
    const Told told = RunNumbers(50, 3, [](const std::string& job) {
        if (job == "7")
            raise(SIGKILL);
        if (job == "20")
            _exit(9);
        return Echo(job);
    });
    EXPECT_EQ(2, told.Failed);
    EXPECT_EQ("its conversion broke off (exit code 9)", told.Reason);
    EXPECT_NE(std::string::npos, told.Outputs.find("6  8 ")) << told.Outputs;
    EXPECT_NE(std::string::npos, told.Outputs.find("48 49 "));
}

TEST(Workers, LargeResultsAndAStopInTheMiddle) {
    const auto large = [](const std::string& job) {
        JobResult result = Echo(job);
        result.Errors.assign(3000000, 'x');
        return result;
    };
    EXPECT_EQ("0 1 2 ", RunNumbers(1000, 2, large, 3).Outputs);
}

TEST(Workers, LargeJobsAndResultsDoNotWaitForEachOther) {
    constexpr std::size_t kMoreThanAPipeTakes = 300000;
    for (const std::size_t blanks : {std::size_t{30000}, kMoreThanAPipeTakes}) {
        const Told told = RunNumbers(40, 2, Echo, -1, blanks);
        EXPECT_EQ(0, told.Failed);
        EXPECT_NE(std::string::npos, told.Outputs.find("39 ")) << blanks;
    }
}
