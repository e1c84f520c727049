#pragma once

/// Lets the n-th allocation of a test fail. The program that links this has its own `operator new`, which
/// behaves as the standard one does: it calls the installed handler when it gets no memory. Its `realloc`
/// counts too.
namespace AllocationFaults {

/// The `count`-th allocation from now on fails, and only that; counted from 1.
void FailAfter(int count);
/// No allocation fails. True when one has failed since FailAfter.
bool Stop();

/// Runs `action` with its first allocation failing, then its second, and so on until a run needs no more.
/// `check` is called after each failing run, with the allocations working. The number of failing runs.
template <class Action, class Check>
int FailEach(Action action, Check check) {
    for (int count = 1;; ++count) {
        FailAfter(count);
        try {
            action();
        } catch (...) {
            Stop();
            check(count);
            continue;
        }
        if (!Stop())
            return count - 1;
        check(count);
    }
}

} // namespace AllocationFaults
