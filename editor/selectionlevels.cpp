#include "editor/selectionlevels.h"

#include <QMetaObject>

bool LevelsRequest::sameAs(const LevelsRequest& o) const
{
    return path == o.path && beginMs == o.beginMs && endMs == o.endMs && settings == o.settings &&
           wave.frameCount == o.wave.frameCount && wave.fadeInStart == o.wave.fadeInStart &&
           wave.fadeInEnd == o.wave.fadeInEnd && wave.fadeOutStart == o.wave.fadeOutStart &&
           wave.fadeOutEnd == o.wave.fadeOutEnd;
}

CSelectionLevels::CSelectionLevels(QObject* parent) : QObject(parent)
{
    m_worker = std::thread([this] { run(); });
}

CSelectionLevels::~CSelectionLevels()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_quit = true;
        m_cancel = true;
    }
    m_wake.notify_one();
    m_worker.join();
}

void CSelectionLevels::request(const LevelsRequest& request)
{
    if (m_haveLatest && request.sameAs(m_latest))
        return;
    m_latest = request;
    m_haveLatest = true;
    m_current.reset();
    m_busy = true;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_pending = request;
        m_hasPending = true;
        ++m_generation;
        m_cancel = true; // the one under way is out of date
    }
    m_wake.notify_one();
    emit measuring();
}

void CSelectionLevels::clear()
{
    m_haveLatest = false;
    m_current.reset();
    m_busy = false;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_hasPending = false;
    ++m_generation;
    m_cancel = true;
}

void CSelectionLevels::run()
{
    for (;;) {
        LevelsRequest job;
        unsigned long long generation = 0;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_wake.wait(lock, [this] { return m_quit || m_hasPending; });
            if (m_quit)
                return;
            job = m_pending;
            m_hasPending = false;
            generation = m_generation;
            m_cancel = false;
        }
        auto levels = std::make_shared<SpanLevels>();
        CSpanRender span;
        if (span.read(job.wave, job.path, job.beginMs, job.endMs))
            *levels = span.levels(job.settings, &m_cancel);
        if (m_cancel)
            continue;
        QMetaObject::invokeMethod(
            this, [this, generation, levels] { deliver(generation, std::move(levels)); },
            Qt::QueuedConnection);
    }
}

void CSelectionLevels::deliver(unsigned long long generation,
                               std::shared_ptr<const SpanLevels> levels)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (generation != m_generation)
            return; // measured for settings that have changed since
    }
    m_current = std::move(levels);
    m_busy = false;
    emit measured();
}
