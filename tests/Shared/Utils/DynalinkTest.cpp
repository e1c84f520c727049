#include "Shared/Utils/Dynalink.h"
#include "Shared/Utils/DiskFile.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <dlfcn.h>
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

constexpr const char* kMathematics = "libm.so.6";

TEST(Dynalink, ProcessGivesItsOwnExportsOnly) {
    {
        const Dynalink process;
        ASSERT_TRUE(process.IsLoaded());
        auto* const own = process.GetFunctionAs<int()>("DynalinkTestExport");
        ASSERT_NE(own, nullptr);
        EXPECT_EQ(own(), 42);
        EXPECT_EQ(process.GetFunction("no such function"), nullptr);
        EXPECT_EQ(process.GetFunction(""), nullptr);
        EXPECT_EQ(process.GetFunction("qsort"), nullptr) << "what a library exports is not the executable's";
    }
    EXPECT_NE(Dynalink().GetFunction("DynalinkTestExport"), nullptr) << "not freed by the first";
}

TEST(Dynalink, LibraryGivesItsOwnExportsOnly) {
    const Dynalink library{String(kMathematics)};
    ASSERT_TRUE(library.IsLoaded());
    EXPECT_NE(library.GetFunction("setpayload"), nullptr);
    EXPECT_EQ(library.GetFunction("qsort"), nullptr) << "what it depends on is not its own";
    EXPECT_EQ(library.GetFunction("DynalinkTestExport"), nullptr);
}

TEST(Dynalink, SameNameInTwoModulesIsTwoFunctions) {
    const Dynalink library{String(kMathematics)};
    const Dynalink process;
    auto* const decoy = process.GetFunctionAs<int()>("setpayloadsig");
    ASSERT_NE(decoy, nullptr);
    EXPECT_EQ(decoy(), 43);
    ASSERT_NE(library.GetFunction("setpayloadsig"), nullptr);
    EXPECT_NE(library.GetFunction("setpayloadsig"), process.GetFunction("setpayloadsig"));
}

TEST(Dynalink, WhatIsNoLibraryGivesNoModule) {
    const FilesTesting::Scratch scratch;
    const std::string text = scratch.Write("text.so", "no library");
    for (const Dynalink& link :
         {Dynalink(String(text)), Dynalink(scratch.PathText("missing.so")), Dynalink(String()),
          Dynalink(DiskFile()), Dynalink(DiskFile(String(text)))}) {
        EXPECT_FALSE(link.IsLoaded());
        EXPECT_EQ(link.GetFunction("qsort"), nullptr);
    }
}

TEST(Dynalink, LoadsFromAFileAndUnloads) {
    const FilesTesting::Scratch scratch;
    Dl_info info{};
    ASSERT_NE(dladdr(Dynalink(String(kMathematics)).GetFunction("setpayload"), &info), 0);
    const std::string path = scratch.Path("a copy.so");
    std::filesystem::copy_file(std::filesystem::canonical(info.dli_fname), path);
    {
        const Dynalink library{DiskFile(String(path))};
        ASSERT_TRUE(library.IsLoaded());
        const void* const address = library.GetFunction("setpayload");
        ASSERT_NE(address, nullptr);
        EXPECT_EQ(Platform::ModuleOfAddress(address), library.GetModule());
    }
    EXPECT_EQ(dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD), nullptr) << "unloaded with the object";
}

TEST(Modules, AddressesBelongToTheModuleTheyLieIn) {
    static const int here = 0;
    EXPECT_EQ(Platform::ModuleOfAddress(&here), Platform::ProcessModule());
    EXPECT_EQ(Platform::ModuleOfAddress(nullptr), nullptr);
    const int onTheStack = 0;
    EXPECT_EQ(Platform::ModuleOfAddress(&onTheStack), nullptr);
}

} // namespace
