#include "Shared/Utils/Dynalink.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>

namespace {

using namespace Nvr;

TEST(Dynalink, WhatIsNoLibraryGivesNoModule) {
    const FilesTesting::Scratch scratch;
    const std::string text = scratch.Write("text.so", "no library");
    for (const Dynalink& link :
         {Dynalink(String(text)), Dynalink(scratch.PathText("missing.so")), Dynalink(String())}) {
        EXPECT_FALSE(link.IsLoaded());
        EXPECT_EQ(link.GetFunction("qsort"), nullptr);
    }
}

TEST(Modules, AddressesBelongToTheModuleTheyLieIn) {
    static const int here = 0;
    EXPECT_EQ(Platform::ModuleOfAddress(&here), Platform::ProcessModule());
    const int onTheStack = 0;
    EXPECT_EQ(Platform::ModuleOfAddress(&onTheStack), nullptr);
}

} // namespace
