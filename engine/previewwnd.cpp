#include "engine/previewwnd.h"

#include "engine/videonotify.h"
#include "engine/videoplayerwraper.h"

#include <videownd.h>

#include <QDebug>
#include <QEnterEvent>
#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QStackedLayout>
#include <QToolButton>

namespace {

const char* const kPlayButtonStyle =
    "QToolButton {min-width:73px; max-width:73px; min-height: 73px; "
    "max-height:73px;background-image: url(:/player/play);}QToolButton:hover{ background-image: "
    "url(:/player/play_on);}QToolButton:pressed:hover{ background-image: "
    "url(:/player/play_down);}QToolButton:checked{ background-image: "
    "url(:/player/pause);}QToolButton:checked:hover{ background-image: "
    "url(:/player/pause_on);}QToolButton:checked:pressed:hover{ background-image: "
    "url(:/player/pause_down);}";

// The picture shown for a song without artwork, drawn for the screen's
// density (the icon engine finds the 2x picture beside the 1x one).
QPixmap defaultAlbum(const QWidget* on)
{
    return QIcon(":/player/album")
        .pixmap(QSize(kPreviewWidth, kPreviewHeight), on->devicePixelRatioF());
}

} // namespace

CPreviewWnd::CPreviewWnd(QWidget* parent)
    : QWidget(parent), m_videoWnd(new CVideoWnd(this)), m_audioLabel(new QLabel(this)),
      m_notify(new CVideoNotify(this)), m_stack(new QStackedLayout),
      m_playBtn(new QToolButton(this))
{
    m_videoWnd->setObjectName("videoWnd");
    m_videoWnd->setMouseTracking(true);
    connect(m_notify, &CVideoNotify::viedoNotify, this, &CPreviewWnd::viedoNotify);
    CVideoPlayerWraper::instance()->setPlayer(m_videoWnd, m_notify);

    m_audioLabel->setObjectName("audioLabel");
    m_audioLabel->setAlignment(Qt::AlignCenter);
    m_audioLabel->setMouseTracking(true);
    m_audioLabel->setPixmap(defaultAlbum(this));

    m_stack->setContentsMargins(0, 0, 0, 0);
    m_stack->addWidget(m_audioLabel);
    m_stack->addWidget(m_videoWnd);
    setLayout(m_stack);

    m_playBtn->setObjectName("playPreview");
    m_playBtn->setCheckable(true);
    m_playBtn->setFocusPolicy(Qt::NoFocus);
    m_playBtn->setStyleSheet(kPlayButtonStyle);
    connect(m_playBtn, &QToolButton::clicked, this, &CPreviewWnd::playBtnClicked);
    connect(m_stack, &QStackedLayout::currentChanged, this, &CPreviewWnd::viewChanged);
    m_stack->setCurrentIndex(0);
    setMouseTracking(true);
}

CPreviewWnd::~CPreviewWnd()
{
    // The player must not call a relay that is going.
    CVideoPlayerWraper::instance()->stop();
    CVideoPlayerWraper::instance()->removeNotify(m_notify);
}

void CPreviewWnd::setPause(bool paused)
{
    m_paused = paused;
    m_playBtn->setChecked(!paused);
}

void CPreviewWnd::waveOpened(CRingToneNode Ringtong)
{
    m_node = Ringtong;
    if (!m_node.bVideo) {
        m_stack->setCurrentIndex(0);
        m_audioLabel->setPixmap(m_node.pixAlbum.isNull() ? defaultAlbum(this) : m_node.pixAlbum);
    } else {
        m_stack->setCurrentIndex(1);
        CVideoPlayerWraper* player = CVideoPlayerWraper::instance();
        player->CreateVexa(m_node.strPath.toLocal8Bit().constData());
        // The first picture shown is the one at one second, on purpose.
        player->seekPos(kVideoFirstFrameMs);
        player->pause();
    }
    setPause(true);
    m_playBtn->show();
}

void CPreviewWnd::play(long long, bool)
{
    setPause(false);
    m_playBtn->hide();
    if (m_node.bVideo)
        CVideoPlayerWraper::instance()->play();
}

void CPreviewWnd::pause(bool)
{
    setPause(true);
    m_playBtn->show();
    if (m_node.bVideo)
        CVideoPlayerWraper::instance()->pause();
}

void CPreviewWnd::stop()
{
    setPause(true);
    m_playBtn->hide();
    if (m_node.bVideo)
        CVideoPlayerWraper::instance()->stop();
    m_node = CRingToneNode();
}

void CPreviewWnd::seek(long long llMsec)
{
    if (m_node.bVideo)
        CVideoPlayerWraper::instance()->seekPos(llMsec);
}

void CPreviewWnd::playPosChanged(long long llMsec)
{
    m_playPos = llMsec;
}

void CPreviewWnd::viedoNotify(long long llTime, int nStat)
{
    if (nStat < 0) {
        qDebug("play erro"); // spelled so in the log on purpose
        return;
    }
    // The sound is the clock.
    if (isOutOfStep(llTime, m_playPos))
        CVideoPlayerWraper::instance()->seekPos(m_playPos);
}

bool CPreviewWnd::isOutOfStep(long long llTime, long long llAudio)
{
    const qint64 drift = static_cast<qint64>(static_cast<qint32>(llTime)) -
                         static_cast<qint64>(static_cast<qint32>(llAudio));
    return drift > kMaxVideoDriftMs || drift < -kMaxVideoDriftMs;
}

void CPreviewWnd::viewChanged(int)
{
    placeButton();
}

void CPreviewWnd::playBtnClicked()
{
    emit do_play();
}

void CPreviewWnd::placeButton()
{
    m_playBtn->move((width() - m_playBtn->width()) / 2, (height() - m_playBtn->height()) / 2);
    m_playBtn->raise();
}

bool CPreviewWnd::buttonFollowsMouse() const
{
    return !m_paused && !m_node.strPath.isEmpty();
}

void CPreviewWnd::enterEvent(QEnterEvent* event)
{
    if (buttonFollowsMouse())
        m_playBtn->show();
    else
        QWidget::enterEvent(event);
}

void CPreviewWnd::leaveEvent(QEvent* event)
{
    if (buttonFollowsMouse())
        m_playBtn->hide();
    else
        QWidget::leaveEvent(event);
}

void CPreviewWnd::mouseMoveEvent(QMouseEvent* event)
{
    if (buttonFollowsMouse()) {
        // Inside the button or not, the pointer over the pane shows it.
        m_playBtn->show();
        return;
    }
    QWidget::mouseMoveEvent(event);
}

void CPreviewWnd::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    placeButton();
    if (m_node.strPath.isEmpty())
        m_playBtn->hide();
}

void CPreviewWnd::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeButton();
}
