// The built library, as a host gets it. What it exports is scripts/check-dll's to say.

#include "tests/Projects/Fretline/shell/LibraryTesting.h"

TEST(Library, WithoutAScreenForItsDialogItImportsNothingAndCanBeUnloaded) {
    EXPECT_EQ(CallsOfALoadedLibrary(false), (std::vector<std::string>{"update 100", "destroy"}));
}
