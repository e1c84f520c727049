// Many conversions in one process, through the built library: what it holds must not grow.
//
//     soak [CONVERSIONS]        100,000 unless another number is given
//
// Every text is another one, and now and then the user cancels. Prints a line a milestone; fails when
// resident memory has grown by more than kMostGrowth since the first, when a descriptor or a temporary file
// stays, or when a tab that is converted again gives other bytes than at first.

#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchTempFolder.h"
#include "tests/support/TabBook.h"

#include <cstdint>
#include <cstdio>
#include <string>

#include <malloc.h>
#include <unistd.h>

namespace {

// What is allocated may differ by a few strings that the last conversion left in a cache; one byte lost in
// each would be 99,000.
constexpr std::size_t kMostBytesMore = 4096;
// Resident memory goes up and down with how the allocator finds room.
constexpr long kMostKilobytesMore = 2048;
constexpr int kFirstMilestone = 1000;
constexpr int kSteadyTabEvery = 10;
constexpr int kCancelEvery = 7;
constexpr int kLinesOfSteadyTab = 60;

std::size_t CountEntries(const char* folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

struct Holdings {
    std::size_t Bytes = 0;
    long Kilobytes = 0;
    std::size_t Descriptors = 0;
    std::size_t TemporaryFiles = 0;
};

long ResidentKilobytes() {
    std::ifstream file("/proc/self/statm");
    long size = 0;
    long resident = 0;
    file >> size >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

std::size_t AllocatedBytes() {
    const struct mallinfo2 facts = mallinfo2();
    return facts.uordblks + facts.hblkhd;
}

bool IsMilestone(int done, int all) {
    return done == kFirstMilestone || done == 10000 || done == 50000 || done == all;
}

class Soak {
public:
    explicit Soak(int conversions) : m_Conversions(conversions) {}

    int Run() {
        if (!m_Host.IsReady()) {
            std::puts("the library could not be started");
            return 1;
        }
        m_SteadyScore = Convert(m_SteadyTab);
        m_IsSound = !m_SteadyScore.empty();
        for (int done = 1; done <= m_Conversions; ++done) {
            ConvertOne(done);
            if (IsMilestone(done, m_Conversions))
                Compare(done);
        }
        std::puts(m_IsSound ? "nothing grew" : "FAILED");
        return m_IsSound ? 0 : 1;
    }

private:
    std::string Convert(const std::string& text) {
        m_Host.Open(m_Folder.Write("a.tab", text));
        return m_Host.GetScore();
    }

    void ConvertOne(int number) {
        if (number % kSteadyTabEvery == 0) {
            m_IsSound = Convert(m_SteadyTab) == m_SteadyScore && m_IsSound;
            return;
        }
        const bool isToBeCancelled = number % kCancelEvery == 0;
        TestSupport::FakeHost& host = m_Host.GetHost();
        if (isToBeCancelled)
            host.Answer = [&host, calls = 3U + static_cast<unsigned>(number / kCancelEvery % 6)] {
                return host.Calls.size() < calls ? 1 : 0;
            };
        if (!Convert(TestSupport::MakeOddTab(static_cast<std::uint32_t>(number))).empty())
            ++m_Scores;
        host.Answer = nullptr;
    }

    void Compare(int done) {
        const Holdings now{AllocatedBytes(), ResidentKilobytes(), CountEntries("/proc/self/fd"),
                           m_Temp.CountEntries()};
        std::printf(
            "%d conversions, %d scores of new texts: %zu bytes allocated, %ld kB resident, %zu descriptors, "
            "%zu temporary files\n",
            done, m_Scores, now.Bytes, now.Kilobytes, now.Descriptors, now.TemporaryFiles);
        if (done == kFirstMilestone)
            m_First = now;
        m_IsSound = m_IsSound && m_Scores > 0 && now.Bytes <= m_First.Bytes + kMostBytesMore &&
                    now.Kilobytes <= m_First.Kilobytes + kMostKilobytesMore &&
                    now.Descriptors == m_First.Descriptors && now.TemporaryFiles == 0;
    }

    const int m_Conversions;
    TestSupport::ScratchFolder m_Folder;
    const TestSupport::ScratchTempFolder m_Temp;
    TestSupport::RecordingHost m_Host{FRETLINE_LIBRARY, m_Folder.Path().string()};
    const std::string m_SteadyTab = TestSupport::MakeTabBook(kLinesOfSteadyTab, {}, 1);
    std::string m_SteadyScore;
    Holdings m_First;
    int m_Scores = 0;
    bool m_IsSound = false;
};

} // namespace

int main(int argc, char** argv) {
    const int conversions = argc > 1 ? std::atoi(argv[1]) : 100000;
    // A buffer of the output would count as what a conversion has left.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    if (conversions <= kFirstMilestone) {
        std::printf("more than %d conversions are needed\n", kFirstMilestone);
        return 2;
    }
    return Soak(conversions).Run();
}
