#pragma once

#include "Shared/Utils/Dynalink.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchTempFolder.h"

#include <gtest/gtest.h>

/// Loads the built library as a host does, has it open a file that is its own and one that is not, and
/// unloads it. Gives the calls of the first open. `hasScore` is whether a score is to come of it.
inline std::vector<std::string> CallsOfALoadedLibrary(bool hasScore) {
    const TestSupport::ScratchFolder folder;
    const TestSupport::ScratchTempFolder temp;
    const std::string dashes = "|--------------|\n";
    const std::string tab = folder.Write("a.tab", dashes + dashes + dashes + "|--0--2--------|\n");
    std::vector<std::string> calls;
    void* function = nullptr;
    {
        const Nvr::Dynalink library{Nvr::String(FRETLINE_LIBRARY)};
        function = library.GetFunction("NVR_INIT");
        EXPECT_NE(function, nullptr);
        TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path().string());
        EXPECT_TRUE(host.IsReady());
        EXPECT_EQ(host.Open(tab), 1);
        calls = host.GetCalls();
        EXPECT_EQ(!host.GetScore().empty(), hasScore);
        EXPECT_EQ(host.Open(tab + ".txt"), 0);
    }
    EXPECT_TRUE(temp.IsEmpty());
    EXPECT_EQ(Nvr::Platform::ModuleOfAddress(function), nullptr) << "nothing keeps it loaded";
    return calls;
}
