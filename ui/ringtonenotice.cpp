#include "ui/ringtonenotice.h"

#include <QDesktopServices>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QUrl>

CRingtoneNotice::CRingtoneNotice(QWidget* parent)
    : QFrame(parent), m_text(new QLabel(this)), m_folderBtn(new QPushButton(this)),
      m_playBtn(new QPushButton(this)), m_hide(new QTimer(this))
{
    setObjectName("ringtoneNotice");
    m_text->setObjectName("noticeLabel");
    m_folderBtn->setObjectName("noticeFolderBtn");
    m_playBtn->setObjectName("noticePlayBtn");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(m_text, 1);
    row->addWidget(m_folderBtn);
    row->addWidget(m_playBtn);
    connect(m_folderBtn, &QPushButton::clicked, this, &CRingtoneNotice::showFolder);
    connect(m_playBtn, &QPushButton::clicked, this, &CRingtoneNotice::play);
    m_hide->setObjectName("noticeTimer");
    m_hide->setSingleShot(true);
    m_hide->setInterval(kShowMs);
    connect(m_hide, &QTimer::timeout, this, &QWidget::hide);
    hide();
    retranslate();
}

void CRingtoneNotice::showMade(const QString& file, bool handedOver)
{
    m_file = file;
    m_handedOver = handedOver;
    retranslate();
    show();
    m_hide->start();
}

void CRingtoneNotice::retranslate()
{
    const QString name = QFileInfo(m_file).fileName();
    m_text->setText(m_handedOver ? tr("%1 added to Ringtones").arg(name)
                                 : tr("%1 was made, but the library did not take it").arg(name));
    m_folderBtn->setText(tr("Show in folder"));
    m_playBtn->setText(tr("Play"));
}

void CRingtoneNotice::showFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(m_file).absolutePath()));
}

void CRingtoneNotice::play()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(m_file));
}

void CRingtoneNotice::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}
