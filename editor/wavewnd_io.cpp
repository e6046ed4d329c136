// CWaveWnd import and export: forwards to CWaveIo, and answers drops. The
// editor does not open a dropped file itself: it tells the main window,
// which makes a song record of it and calls openFile.

#include "editor/ringtoneexport.h"
#include "editor/spansuggest.h"
#include "editor/waveio.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"
#include "engine/timelinehelper.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

int CWaveWnd::openFile(const CRingToneNode& song)
{
    m_io->setNode(song);
    const int rc = m_io->convertToWave(song.strPath);
    if (rc < 0)
        return rc;
    return initWave();
}

int CWaveWnd::convertToWave(QString src)
{
    return m_io->convertToWave(src);
}

bool CWaveWnd::isWaveFile(const char* path)
{
    return CWaveIo::isWaveFile(path);
}

int CWaveWnd::reload()
{
    return m_io->reload();
}

int CWaveWnd::convertToM4r(QString m4rPath)
{
    // The export replaces the temporary WAV: proposals still being worked
    // out start again on the new one.
    const bool suggesting = !m_suggest->isReady();
    if (suggesting)
        m_suggest->clear();
    const int rc = m_export->exportTo(m4rPath);
    if (suggesting && m_playback->isOpen())
        m_suggest->start(m_io->getWavePath(), m_playback->record(), kSuggestionLengthMs);
    // The export went on a new temporary WAV.
    refreshLevels();
    update();
    return rc;
}

void CWaveWnd::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat("text/uri-list"))
        event->acceptProposedAction();
    else
        event->ignore();
}

void CWaveWnd::dropEvent(QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty())
        return;
    // Only the first of several dropped files is opened.
    const QString path = urls.first().toLocalFile();
    if (path.isEmpty())
        return;
    if (CTimeLineHelper::haveAudio(path.toLocal8Bit().constData())) {
        event->acceptProposedAction();
        emit openWave(path);
    }
}
