#include "Shared/Utils/Dynalink.h"

#include <gtest/gtest.h>

// Exported by this program, and under the name of something that the mathematics library exports too.
extern "C" __attribute__((visibility("default"))) int DynalinkTestExport();
extern "C" __attribute__((visibility("default"))) int DynalinkTestDecoy() asm("setpayloadsig");

extern "C" int DynalinkTestExport() {
    return 42;
}
extern "C" int DynalinkTestDecoy() {
    return 43;
}

namespace {

using namespace Nvr;

TEST(Dynalink, AModuleGivesItsOwnExportsOnly) {
    const Dynalink library{String("libm.so.6")};
    ASSERT_TRUE(library.IsLoaded());
    EXPECT_NE(library.GetFunction("setpayload"), nullptr);
    EXPECT_EQ(library.GetFunction("qsort"), nullptr) << "what it depends on is not its own";
    EXPECT_EQ(library.GetFunction("DynalinkTestExport"), nullptr);
    { const Dynalink released; }
    const Dynalink process;
    auto* const own = process.GetFunctionAs<int()>("DynalinkTestExport");
    ASSERT_NE(own, nullptr) << "not freed by another object";
    EXPECT_EQ(own(), 42);
    EXPECT_EQ(process.GetFunction("qsort"), nullptr) << "what a library exports is not the executable's";
    auto* const decoy = process.GetFunctionAs<int()>("setpayloadsig");
    ASSERT_NE(decoy, nullptr);
    EXPECT_EQ(decoy(), 43) << "the same name in two modules";
    EXPECT_NE(library.GetFunction("setpayloadsig"), process.GetFunction("setpayloadsig"));
}

} // namespace
