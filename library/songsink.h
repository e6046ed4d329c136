#pragma once
// ISongSink: what receives the songs a library search finds, one record per
// hit, in the order the library reports them. The song list model is one.

class CRingToneNode;

class ISongSink
{
public:
    virtual ~ISongSink() = default;
    // Takes a copy of the record; true when it was kept.
    virtual bool addRingTone(const CRingToneNode& node) = 0;
};
