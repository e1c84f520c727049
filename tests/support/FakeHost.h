#pragma once

#include <functional>
#include <string>
#include <vector>

namespace TestSupport {

/// A host inside of the test program, which exports the six host functions. The one FakeHost that lives hears
/// of every call; without one the calls do nothing. Linked in as the object library `fake_host`.
class FakeHost {
public:
    FakeHost();
    ~FakeHost();
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    /// What to give as ProgressContext; a call with another one shows as "wrong context".
    void* Context() { return this; }

    /// One line a call:
    ///     create TITLE|0|100|30    update 20    message CONVERTER|FILE|4|-2|-2|TEXT    load    destroy
    /// An update with a text shows it after the percent.
    std::vector<std::string> Calls;
    /// Runs inside of each call, which is the last line of Calls. May throw; gives the answer to an update.
    std::function<int()> Answer;
    /// What the last load was told, and the bytes of that file while it was there.
    std::string LoadedPath;
    std::string LoadedBytes;
};

} // namespace TestSupport
