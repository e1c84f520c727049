#include "Shared/Utils/TempFiles.h"
#include "Shared/Utils/StandardFolders.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>
#include <set>

namespace {

using namespace Nvr;
using namespace FilesTesting;

TEST(TempFiles, FileIsNewAndEmpty) {
    const Scratch scratch;
    const Environment temp(TestSupport::kTempFolderVariable, scratch.Path());
    std::set<std::string> names;
    for (int i = 0; i < 20; ++i) {
        const DiskFile file = CreateTempFile();
        ASSERT_TRUE(file.Exists());
        EXPECT_EQ(Text(file.GetParent().GetPath()), scratch.Path());
        EXPECT_EQ(file.GetSize(), 0);
        const std::string name = Text(file.GetFileName(true));
        const std::size_t afterDigits = name.find_first_not_of("0123456789", 2);
        EXPECT_TRUE(name.starts_with("nv") && afterDigits > 2 && name.substr(afterDigits) == ".tmp") << name;
        names.insert(name);
        EXPECT_TRUE(file.Delete(false));
    }
    EXPECT_EQ(names.size(), 20U) << "a name that comes again could be predicted";
    EXPECT_EQ(scratch.CountEntries(), 0U);
}

TEST(TempFiles, UniqueNameIsFreeAndTheFileNotMade) {
    const Scratch scratch;
    const DiskFile file = UniqueFile(DiskFolder(String(scratch.Path())));
    const std::string name = Text(file.GetFileName(true));
    EXPECT_TRUE(name.size() == 14 && name.starts_with("temp") && String(name.substr(4)).IsDigits()) << name;
    EXPECT_EQ(Text(file.GetParent().GetPath()), scratch.Path());
    EXPECT_FALSE(file.Exists());
}

TEST(TempFiles, NoFolderGivesNoObject) {
    const Scratch scratch;
    EXPECT_TRUE(CreateTempFile(DiskFolder(scratch.PathText("missing"))).GetUrl().IsEmpty());
    EXPECT_TRUE(CreateTempFile(DiskFolder(String(scratch.Write("file", "")))).GetUrl().IsEmpty());
    EXPECT_TRUE(CreateTempFile(DiskFolder()).GetUrl().IsEmpty());
}

} // namespace
