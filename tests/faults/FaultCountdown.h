#pragma once

#include <climits>

/// Counts the calls of one kind and lets the n-th of them fail. Whoever makes the calls asks IsDue.
class FaultCountdown {
public:
    /// As many calls as there are.
    static constexpr int kAllLater = INT_MAX;

    /// The `count`-th call from now on fails, counted from 1, and so do those after it until `inARow` have.
    void FailAfter(int count, int inARow = 1) {
        m_Left = count;
        m_LeftToFail = inARow;
        m_HasFailed = false;
    }
    /// No call fails. True when one has failed since FailAfter.
    bool Stop() {
        m_Left = 0;
        return m_HasFailed;
    }
    bool IsDue() {
        if (m_Left == 0)
            return false;
        if (m_Left > 1) {
            --m_Left;
            return false;
        }
        m_HasFailed = true;
        if (--m_LeftToFail == 0)
            m_Left = 0;
        return true;
    }

    /// Runs `action` with its first call failing, then its second, and so on until a run needs no more.
    /// `check` is called after each failing run, with the calls working. The number of failing runs.
    template <class Action, class Check>
    int FailEach(Action action, Check check, int inARow = 1) {
        for (int count = 1;; ++count) {
            FailAfter(count, inARow);
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

private:
    int m_Left = 0;
    int m_LeftToFail = 0;
    bool m_HasFailed = false;
};
