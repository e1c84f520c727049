#include "Shared/Utils/Dynalink.h"

#include <gtest/gtest.h>

namespace {

using namespace Nvr;

TEST(Dynalink, AModuleGivesItsOwnExportsOnly) {
    const Dynalink library{String("shlwapi.dll")};
    ASSERT_TRUE(library.IsLoaded());
    EXPECT_NE(library.GetFunction("PathFileExistsA"), nullptr);
    EXPECT_EQ(library.GetFunction("CreateFileA"), nullptr) << "what it depends on is not its own";
    { const Dynalink released; }
    const Dynalink process;
    EXPECT_TRUE(process.IsLoaded());
    EXPECT_EQ(process.GetFunction("CreateFileA"), nullptr)
        << "what a library exports is not the executable's";
    EXPECT_EQ(process.GetFunction("qsort"), nullptr) << "nor what is linked in without being exported";
}

} // namespace
