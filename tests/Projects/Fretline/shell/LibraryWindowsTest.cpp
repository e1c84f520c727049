// The built library, as a host gets it. What it exports is scripts/check-dll's to say.

#include "Shared/Utils/Dynalink.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchTempFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(Library, WithoutAScreenForItsDialogItImportsNothingAndCanBeUnloaded) {
    const TestSupport::ScratchFolder folder;
    const TestSupport::ScratchTempFolder temp;
    const std::string dashes = "|--------------|\n";
    const std::string tab = folder.Write("a.tab", dashes + dashes + dashes + "|--0--2--------|\n");
    void* function = nullptr;
    {
        const Nvr::Dynalink library{Nvr::String(FRETLINE_LIBRARY)};
        function = library.GetFunction("NVR_INIT");
        ASSERT_NE(function, nullptr);
        TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path().string());
        ASSERT_TRUE(host.IsReady());
        EXPECT_EQ(host.Open(tab), 1);
        EXPECT_EQ(host.GetCalls(), (std::vector<std::string>{"update 100", "destroy"}));
        EXPECT_EQ(host.Open(tab + ".txt"), 0);
    }
    EXPECT_TRUE(temp.IsEmpty());
    EXPECT_EQ(Nvr::Platform::ModuleOfAddress(function), nullptr) << "nothing keeps it loaded";
}

} // namespace
