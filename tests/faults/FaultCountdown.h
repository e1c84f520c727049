#pragma once

/// Counts the calls of one kind and lets the n-th of them fail. Whoever makes the calls asks IsDue.
class FaultCountdown {
public:
    /// The `count`-th call from now on fails, counted from 1: only that, or all behind it too.
    void FailAfter(int count, bool andAllLater = false) {
        m_Left = count;
        m_AndAllLater = andAllLater;
        m_HasFailed = false;
    }
    /// No call fails. True when one has failed since FailAfter.
    bool Stop() {
        m_Left = 0;
        return m_HasFailed;
    }
    bool IsDue() {
        if (m_Left == 0 || --m_Left != 0)
            return false;
        m_HasFailed = true;
        m_Left = m_AndAllLater ? 1 : 0;
        return true;
    }

    /// Runs `action` with its first call failing, then its second, and so on until a run needs no more.
    /// `check` is called after each failing run, with the calls working. The number of failing runs.
    template <class Action, class Check>
    int FailEach(Action action, Check check, bool andAllLater = false) {
        for (int count = 1;; ++count) {
            FailAfter(count, andAllLater);
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
    bool m_AndAllLater = false;
    bool m_HasFailed = false;
};
