#pragma once
// How a running conversion reports back: the engine's progress callback hands
// over the progress (0..10000) and the status word (negative on failure).
// Implementations store the two numbers and nothing else; the callback may
// run on an engine thread.

class IProgress
{
public:
    virtual void setProgress(int progress, int status) = 0;
    virtual void finish() = 0;
    virtual ~IProgress() = default;
};
