#pragma once
// CSpanSuggest: the editor's best-part proposals for the open song, found
// off the GUI thread. When a song is open the editor starts it on the
// temporary WAV; a worker thread reads the WAV a block at a time into
// CSpanFeatures and asks CSpanFinder for the proposals, which come back to
// the GUI thread with `ready`. Starting again (another song) or clearing
// drops what is under way; a result for an older start is never delivered.
// Owns its worker thread, which it stops and joins when destroyed (or when
// a newer start replaces it); call it from the GUI thread.

#include "audio/wavehelper.h"
#include "editor/spanfinder.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

class CSpanSuggest : public QObject
{
    Q_OBJECT

public:
    explicit CSpanSuggest(QObject* parent = nullptr);
    ~CSpanSuggest() override;

    CSpanSuggest(const CSpanSuggest&) = delete;
    CSpanSuggest& operator=(const CSpanSuggest&) = delete;

    // Works out the proposals for spans of `lengthMs` of the WAV at `path`,
    // laid out as `wave` (an open record's layout; its fades are not read).
    void start(const QString& path, const tagWaveInfo& wave, long long lengthMs);
    // No song any more: what is under way is dropped, the proposals go.
    void clear();
    // Whether proposals are ready (none may have been found for a short song).
    bool isReady() const { return m_ready; }
    const std::vector<SpanProposal>& proposals() const { return m_proposals; }
    // The proposal after the one taken last: the best one first, then the
    // others in turn, then the best again. False while there is none.
    bool next(SpanProposal* proposal);

    // The proposals for the WAV at `path` laid out as `wave`, read a block at
    // a time; empty when it cannot be read or `cancel` was set. Any thread.
    static std::vector<SpanProposal> analyse(const QString& path, const tagWaveInfo& wave,
                                             long long lengthMs,
                                             const std::atomic<bool>* cancel = nullptr);
    // The proposals for the media file at `path`, decoded once straight
    // into the analysis at its own low rate (no WAV); `durationMs`, when
    // given, gets the length of the sound heard. Empty when the file cannot
    // be decoded or `cancel` was set. Any thread.
    static std::vector<SpanProposal> analyseSource(const QString& path, long long lengthMs,
                                                   long long* durationMs = nullptr,
                                                   const std::atomic<bool>* cancel = nullptr);
    // The first half of analyse(): the WAV's features, or nullptr when it
    // cannot be read or `cancel` was set.
    static std::unique_ptr<CSpanFeatures> readFeatures(const QString& path, const tagWaveInfo& wave,
                                                       const std::atomic<bool>* cancel = nullptr);

signals:
    // The proposals for the latest start are in (or there are none).
    void ready();

private:
    void stopWorker();
    void deliver(unsigned long long generation, std::vector<SpanProposal> proposals);

    std::vector<SpanProposal> m_proposals;
    bool m_ready = false;
    int m_taken = -1; // the proposal taken last
    unsigned long long m_generation = 0;
    std::shared_ptr<std::atomic<bool>> m_cancel;
    std::thread m_worker;
};
