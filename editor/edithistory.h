#pragma once
// CEditHistory: undo and redo over the editor's settings. Each user gesture
// (a typed time, a drag, a key, a click on a fade box, a slider let go)
// commits the settings it left; a commit that changes nothing is no step.
// Holds plain values; opening another song resets it. GUI thread.

#include <deque>
#include <vector>

// Everything the ringtone is made from that the user sets in the editor.
struct EditState
{
    long long beginMs = 0;
    long long endMs = 0;
    bool fadeInOn = false;
    int fadeInSeconds = 0;
    bool fadeOutOn = false;
    int fadeOutSeconds = 0;
    int volume = 100;
    int normalize = 0; // the "Normalize" choice's index
    int kind = 0;      // the ringtone kind's index

    bool operator==(const EditState& o) const;
    bool operator!=(const EditState& o) const { return !(*this == o); }
};

class CEditHistory
{
public:
    // Steps kept back; the oldest go first.
    static constexpr int kDepth = 100;

    CEditHistory() = default;
    CEditHistory(const CEditHistory&) = delete;
    CEditHistory& operator=(const CEditHistory&) = delete;

    // No steps; `state` is where the editor stands.
    void reset(const EditState& state);
    // A gesture left `state`: a step back to the state before, when they
    // differ; the steps undone are forgotten. Whether it was a step.
    bool commit(const EditState& state);
    bool canUndo() const { return !m_undo.empty(); }
    bool canRedo() const { return !m_redo.empty(); }
    int undoSteps() const { return static_cast<int>(m_undo.size()); }
    int redoSteps() const { return static_cast<int>(m_redo.size()); }
    // The state to restore; false (and `out` untouched) when there is none.
    bool undo(EditState* out);
    bool redo(EditState* out);
    const EditState& current() const { return m_current; }

private:
    std::deque<EditState> m_undo;
    std::vector<EditState> m_redo;
    EditState m_current;
};
