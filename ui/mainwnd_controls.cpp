// CMainWnd: the rows around the editor (message pane, play bar, settings
// bar), their two-way sync with the editor, and the convert flow.

#include "ui/mainwnd.h"

#include "core/branding.h"
#include "core/settingskeys.h"
#include "editor/ringtoneexport.h"
#include "editor/ringtonename.h"
#include "editor/spansuggest.h"
#include "editor/wavemodel.h"
#include "editor/wavewnd.h"
#include "engine/platformfolders.h"
#include "engine/previewwnd.h"
#include "engine/timeconvert.h"
#include "ui/namedlg.h"
#include "ui/ringtonenotice.h"
#include "ui/tickerlabel.h"
#include "ui/tryagaindlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QStackedLayout>
#include <QTimeEdit>
#include <QToolButton>
#include <QUrl>
#include <cmath>

namespace {

// The message pane's pictures are drawn at this size, for the screen's density.
constexpr int kMsgPictureSize = 24;
constexpr int kVolumeMax = 256;
constexpr int kVolumeDefault = 100;
constexpr int kFadeDefault = 5;
// The zoom slider holds ten times the editor's zoom.
constexpr float kZoomSliderScale = 10.0f;
const char* const kTimeFormat = "h:mm:ss";

QPixmap msgPicture(const char* path, const QWidget* on)
{
    return QIcon(path).pixmap(QSize(kMsgPictureSize, kMsgPictureSize), on->devicePixelRatioF());
}

QTimeEdit* makeTimeEdit(QWidget* parent, const char* name)
{
    auto* edit = new QTimeEdit(parent);
    edit->setObjectName(name);
    edit->setDisplayFormat(kTimeFormat);
    edit->setCurrentSection(QDateTimeEdit::SecondSection);
    return edit;
}

} // namespace

QWidget* CMainWnd::createMsgWidget(QWidget* parent)
{
    auto* pane = new QWidget(parent);
    pane->setObjectName("msgWidget");
    auto* grid = new QGridLayout(pane);

    auto* title = new QFormLayout;
    m_picLabel = new QLabel(QStringLiteral("pic"), pane);
    m_picLabel->setObjectName("picLabel");
    m_picLabel->setPixmap(msgPicture(":/msg/musical", this));
    m_titleLabel = new CTickerLabel(pane);
    m_titleLabel->setObjectName("titleLabel");
    title->addRow(m_picLabel, m_titleLabel);
    grid->addLayout(title, 0, 0, Qt::AlignLeft | Qt::AlignVCenter);

    m_playTimeLabel = new QLabel(QStringLiteral("00:00:00/00:00:00"), pane);
    m_playTimeLabel->setObjectName("playTimeLabel");
    grid->addWidget(m_playTimeLabel, 0, 1, Qt::AlignCenter);
    m_selectTimeLenLabel = new QLabel(QStringLiteral("0"), pane);
    m_selectTimeLenLabel->setObjectName("selectTimelenLabel");
    grid->addWidget(m_selectTimeLenLabel, 0, 2, Qt::AlignCenter);
    m_closeBtn = new QPushButton(pane);
    m_closeBtn->setObjectName("closeBtn");
    m_closeBtn->setFocusPolicy(Qt::NoFocus);
    connect(m_closeBtn, &QPushButton::clicked, this, &CMainWnd::closeWave);
    grid->addWidget(m_closeBtn, 0, 3, Qt::AlignRight);

    grid->setColumnStretch(0, 4);
    grid->setColumnStretch(1, 5);
    grid->setColumnStretch(2, 2);
    grid->setColumnStretch(3, 1);
    return pane;
}

QWidget* CMainWnd::creatrPlayWidget(QWidget* parent)
{
    auto* bar = new QWidget(parent);
    bar->setObjectName("playWidget");
    auto* grid = new QGridLayout(bar);
    grid->setObjectName("gridLayout");
    auto tool = [bar](const char* name) {
        auto* btn = new QToolButton(bar);
        btn->setObjectName(name);
        btn->setFocusPolicy(Qt::NoFocus);
        return btn;
    };
    auto push = [bar](const char* name, bool checkable) {
        auto* btn = new QPushButton(bar);
        btn->setObjectName(name);
        btn->setCheckable(checkable);
        btn->setFocusPolicy(Qt::NoFocus);
        return btn;
    };

    m_zoomOutBtn = tool("zoomOutBtn");
    m_zoomSlider = new QSlider(Qt::Horizontal, bar);
    m_zoomSlider->setObjectName("zoomSlider");
    m_zoomSlider->setSingleStep(5);
    m_zoomSlider->setFocusPolicy(Qt::NoFocus);
    m_zoomInBtn = tool("zoomInBtn");
    m_setBeginBtn = push("setBeginbtn", false);
    m_playBtn = push("playBtn", true);
    m_previewBtn = push("previewBtn", true);
    m_setEndBtn = push("setEndBtn", false);
    m_suggestBtn = push("suggestBtn", false);
    m_suggestBtn->setEnabled(false); // until the open song's proposals are in
    m_volumeReduceBtn = tool("volumeReduce");
    m_volumeSlider = new QSlider(Qt::Horizontal, bar);
    m_volumeSlider->setObjectName("volumeSlider");
    m_volumeSlider->setRange(0, kVolumeMax);
    m_volumeSlider->setTickInterval(1);
    m_volumeSlider->setValue(kVolumeDefault);
    m_volumeSlider->setFocusPolicy(Qt::NoFocus);
    m_volumeAddBtn = tool("volumeAdd");

    const std::pair<QWidget*, Qt::Alignment> cells[] = {
        {m_zoomOutBtn, Qt::AlignRight},      {m_zoomSlider, Qt::AlignCenter},
        {m_zoomInBtn, Qt::AlignLeft},        {m_setBeginBtn, Qt::AlignCenter},
        {m_playBtn, Qt::AlignCenter},        {m_previewBtn, Qt::AlignCenter},
        {m_setEndBtn, Qt::AlignCenter},      {m_suggestBtn, Qt::AlignCenter},
        {m_volumeReduceBtn, Qt::AlignRight}, {m_volumeSlider, Qt::AlignCenter},
        {m_volumeAddBtn, Qt::AlignLeft}};
    int column = 0;
    for (const auto& [widget, alignment] : cells) {
        grid->addWidget(widget, 0, column, alignment);
        grid->setColumnStretch(column, 1);
        ++column;
    }

    connect(m_zoomOutBtn, &QToolButton::clicked, m_waveWnd, &CWaveWnd::zoomOut);
    connect(m_zoomSlider, &QSlider::valueChanged, this, &CMainWnd::zoom);
    connect(m_zoomInBtn, &QToolButton::clicked, m_waveWnd, &CWaveWnd::zoomIn);
    connect(m_setBeginBtn, &QPushButton::clicked, m_waveWnd, qOverload<>(&CWaveWnd::setBeginTime));
    connect(m_playBtn, &QPushButton::clicked, m_waveWnd, &CWaveWnd::play);
    connect(m_previewBtn, &QPushButton::clicked, m_waveWnd, &CWaveWnd::preview);
    connect(m_setEndBtn, &QPushButton::clicked, m_waveWnd, qOverload<>(&CWaveWnd::setEndTime));
    connect(m_suggestBtn, &QPushButton::clicked, this, &CMainWnd::suggest);
    connect(&m_waveWnd->spanSuggest(), &CSpanSuggest::ready, this, &CMainWnd::suggestionsChanged);
    connect(m_volumeReduceBtn, &QToolButton::clicked, m_waveWnd, &CWaveWnd::volumeReduce);
    connect(m_volumeSlider, &QSlider::valueChanged, m_waveWnd, &CWaveWnd::setVolume);
    connect(m_volumeAddBtn, &QToolButton::clicked, m_waveWnd, &CWaveWnd::volumeAdd);
    return bar;
}

QWidget* CMainWnd::CreateSetingWidget(QWidget* parent)
{
    auto* bar = new QWidget(parent);
    bar->setObjectName("setingWidget");
    auto* grid = new QGridLayout(bar);
    grid->setObjectName("gridLayout");
    grid->setContentsMargins(0, 0, 0, 0);

    auto fadeBox = [bar, grid](QCheckBox*& box, QSpinBox*& spin, const char* boxName,
                               const char* spinName, const char* text, int row) {
        box = new QCheckBox(QString::fromLatin1(text), bar);
        box->setObjectName(boxName);
        box->setFocusPolicy(Qt::NoFocus);
        spin = new QSpinBox(bar);
        spin->setObjectName(spinName);
        spin->setValue(kFadeDefault);
        spin->setEnabled(false);
        grid->addWidget(box, row, 0, Qt::AlignRight);
        grid->addWidget(spin, row, 1, Qt::AlignLeft);
    };
    // "Fade  in" with two blanks, deliberately: it lines up with "Fade out".
    fadeBox(m_fadeInCheck, m_fadeInSpin, "fadeInCheckBox", "fadeInSpinBox", "Fade  in", 0);
    fadeBox(m_fadeOutCheck, m_fadeOutSpin, "fadeOutCheckBox", "fadeOutSpinBox", "Fade out", 1);

    auto* beginForm = new QFormLayout;
    beginForm->setObjectName("formLayout_2");
    m_beginLabel = new QLabel(QStringLiteral("Start Time"), bar);
    m_beginLabel->setObjectName("beginLabel");
    m_beginTime = makeTimeEdit(bar, "beginTime");
    beginForm->addRow(m_beginLabel, m_beginTime);
    grid->addLayout(beginForm, 0, 2);

    auto* endForm = new QFormLayout;
    endForm->setObjectName("formLayout");
    m_endLabel = new QLabel(QStringLiteral("End  Time"), bar);
    m_endLabel->setObjectName("endLabel");
    m_endTime = makeTimeEdit(bar, "endTime");
    endForm->addRow(m_endLabel, m_endTime);
    grid->addLayout(endForm, 1, 2);

    m_startBtn = new QPushButton(bar);
    m_startBtn->setObjectName("startbtn");
    m_startBtn->setFocusPolicy(Qt::NoFocus);
    grid->addWidget(m_startBtn, 0, 3, 2, 1, Qt::AlignCenter);

    // The kind of ringtone, under the create button; remembered.
    m_kindCombo = new QComboBox(bar);
    m_kindCombo->setObjectName("ringtoneKindCombo");
    // The texts come from retranslate().
    int kinds = 0;
    const RingtoneFormat* formats = CRingtoneExport::formats(&kinds);
    for (int i = 0; i < kinds; ++i)
        m_kindCombo->addItem(QString(), QString::fromLatin1(formats[i].key));
    RingtoneKind saved = RingtoneKind::IphoneRingtone;
    CRingtoneExport::kindOfKey(QSettings().value(settingskeys::kRingtoneKind).toString(), &saved);
    m_kindCombo->setCurrentIndex(int(saved));
    grid->addWidget(m_kindCombo, 2, 3, Qt::AlignCenter);
    connect(m_kindCombo, &QComboBox::currentIndexChanged, this, [this] {
        QSettings().setValue(settingskeys::kRingtoneKind, m_kindCombo->currentData().toString());
    });

    // Normalize and the selection's loudness, under the times; remembered.
    auto* loudness = new QHBoxLayout;
    loudness->setObjectName("loudnessLayout");
    m_normalizeLabel = new QLabel(bar);
    m_normalizeLabel->setObjectName("normalizeLabel");
    m_normalizeCombo = new QComboBox(bar);
    m_normalizeCombo->setObjectName("normalizeCombo");
    m_normalizeLabel->setBuddy(m_normalizeCombo);
    // The texts come from retranslate(); the keys are what the settings keep.
    for (const char* key : {"off", "standard", "loud"})
        m_normalizeCombo->addItem(QString(), QString::fromLatin1(key));
    const int savedNormalize =
        m_normalizeCombo->findData(QSettings().value(settingskeys::kRingtoneNormalize).toString());
    m_normalizeCombo->setCurrentIndex(std::max(savedNormalize, 0));
    m_loudnessLabel = new QLabel(bar);
    m_loudnessLabel->setObjectName("loudnessLabel");
    loudness->addWidget(m_normalizeLabel);
    loudness->addWidget(m_normalizeCombo);
    loudness->addWidget(m_loudnessLabel, 1);
    grid->addLayout(loudness, 2, 1, 1, 2);
    connect(m_normalizeCombo, &QComboBox::currentIndexChanged, this, [this] {
        QSettings().setValue(settingskeys::kRingtoneNormalize,
                             m_normalizeCombo->currentData().toString());
        normalizeChosen();
    });
    connect(m_waveWnd, &CWaveWnd::loudnessChange, this, &CMainWnd::loudnessChanged);
    normalizeChosen();

    auto* share = new QHBoxLayout;
    m_twitterBtn = new QToolButton(bar);
    m_twitterBtn->setObjectName("twitter");
    m_twitterBtn->setFocusPolicy(Qt::NoFocus);
    m_facebookBtn = new QToolButton(bar);
    m_facebookBtn->setObjectName("facebook");
    m_facebookBtn->setFocusPolicy(Qt::NoFocus);
    share->addWidget(m_twitterBtn);
    share->addWidget(m_facebookBtn);
    grid->addLayout(share, 2, 0, 1, 1, Qt::AlignLeft);

    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(2, 4);
    grid->setColumnStretch(3, 3);

    connect(m_fadeInCheck, &QCheckBox::stateChanged, this, &CMainWnd::fadeInChecked);
    connect(m_fadeInSpin, &QSpinBox::valueChanged, m_waveWnd, &CWaveWnd::fadeIn);
    connect(m_beginTime, &QTimeEdit::timeChanged, this, &CMainWnd::setBegin);
    connect(m_fadeOutCheck, &QCheckBox::stateChanged, this, &CMainWnd::fadeOutChecked);
    connect(m_fadeOutSpin, &QSpinBox::valueChanged, m_waveWnd, &CWaveWnd::fadeOut);
    connect(m_endTime, &QTimeEdit::timeChanged, this, &CMainWnd::setEnd);
    connect(m_startBtn, &QPushButton::clicked, this, &CMainWnd::convert);
    connect(m_twitterBtn, &QToolButton::clicked, this, &CMainWnd::twitter);
    connect(m_facebookBtn, &QToolButton::clicked, this, &CMainWnd::jFacebook);
    return bar;
}

// --- from the editor --------------------------------------------------------

void CMainWnd::waveOpened(CRingToneNode Ringtong)
{
    if (Ringtong.strPath.isEmpty())
        return;
    m_current = Ringtong;
    if (m_current.bVideo) {
        m_picLabel->setPixmap(msgPicture(":/msg/film", this));
        if (m_previewWnd->isHidden()) {
            m_showVideoBtn->setChecked(true);
            m_previewWnd->show();
        }
    } else {
        m_picLabel->setPixmap(msgPicture(":/msg/musical", this));
    }
    m_titleLabel->setText(m_current.strTitle);

    const QTime total = m_waveWnd->getMaxTime();
    m_beginTime->setTimeRange(QTime(0, 0), m_waveWnd->getEndTime());
    m_endTime->setTimeRange(QTime(0, 0), total);
    m_mainStack->setCurrentIndex(1);

    m_zoomSlider->setRange(int(m_waveWnd->getMinZoom() * kZoomSliderScale),
                           int(m_waveWnd->getMaxZoom() * kZoomSliderScale));
    m_zoomSlider->setValue(int(kZoomSliderScale)); // zoom 1
    // The fade boxes keep their values from the song before.
    const int totalMs = int(CTimeConvert::timeToLong(total));
    m_fadeInSpin->setRange(0, totalMs);
    m_fadeOutSpin->setRange(0, totalMs);
    suggestionsChanged();
    // Another song starts without steps to undo; the reload after writing
    // a ringtone is the same song.
    if (m_writing == 0)
        resetHistory();
}

void CMainWnd::selectchange(QTime begintime, QTime endtime)
{
    const long long begin = CTimeConvert::timeToLong(begintime);
    const long long end = CTimeConvert::timeToLong(endtime);
    const long long total = CTimeConvert::timeToLong(m_waveWnd->getMaxTime());
    // The ranges are the edits' business: no edit may reach the editor. Both
    // ranges go first: a time set within the old range would be held to it,
    // and the field would no longer show the editor's selection.
    const QSignalBlocker beginBlocker(m_beginTime);
    const QSignalBlocker endBlocker(m_endTime);
    // A QTime never passes 24 hours, so the lower bound is always 0:00:00;
    // the comparison is kept as it is.
    const long long lowest = end <= kMaxSelection ? 0 : end - kMaxSelection;
    m_beginTime->setTimeRange(CTimeConvert::longToTime(long(lowest)),
                              CTimeConvert::longToTime(long(qMax(0LL, end - kMinSelection))));
    m_endTime->setTimeRange(CTimeConvert::longToTime(long(begin + kMinSelection)),
                            CTimeConvert::longToTime(long(qMax(total, begin))));
    m_beginTime->setTime(begintime);
    m_endTime->setTime(endtime);
    // Seconds of each end truncated apart, then subtracted: 10.9 s to
    // 40.1 s reads 30s.
    m_selectTimeLenLabel->setText(QStringLiteral("%1s").arg(end / 1000 - begin / 1000));
    commitEdit();
}

void CMainWnd::playPosChanged(long long lPos)
{
    m_playTimeLabel->setText(CTimeConvert::longToTime(long(lPos)).toString("hh:mm:ss") + "/" +
                             m_waveWnd->getMaxTime().toString("hh:mm:ss"));
}

void CMainWnd::zoomChanged(float fv)
{
    const QSignalBlocker blocker(m_zoomSlider);
    m_zoomSlider->setValue(int(fv * kZoomSliderScale));
}

void CMainWnd::normalizeChosen()
{
    const Normalize choice = static_cast<Normalize>(std::max(m_normalizeCombo->currentIndex(), 0));
    m_waveWnd->setLoudnessTarget(normalizeTarget(choice));
    // The target sets the gain: the volume has no say while it is on.
    const bool volumeFree = choice == Normalize::Off;
    for (QWidget* w : {static_cast<QWidget*>(m_volumeSlider), static_cast<QWidget*>(m_volumeAddBtn),
                       static_cast<QWidget*>(m_volumeReduceBtn)})
        if (w)
            w->setEnabled(volumeFree);
}

void CMainWnd::loudnessChanged(double lufs, double truePeak)
{
    m_lufs = lufs;
    m_truePeak = truePeak;
    m_haveLoudness = true;
    showLoudness();
}

void CMainWnd::showLoudness()
{
    if (!m_loudnessLabel)
        return;
    if (!m_haveLoudness) {
        m_loudnessLabel->clear();
        m_loudnessLabel->setToolTip(QString());
        return;
    }
    // A typographic minus, as loudness figures are printed.
    const auto figure = [](double v) {
        return QString::number(v, 'f', 1).replace(QLatin1Char('-'), QChar(0x2212));
    };
    if (std::isnan(m_lufs)) {
        m_loudnessLabel->setText(tr("Measuring…"));
        m_loudnessLabel->setToolTip(QString());
    } else if (!std::isfinite(m_lufs)) {
        m_loudnessLabel->setText(tr("Silent"));
        m_loudnessLabel->setToolTip(QString());
    } else {
        m_loudnessLabel->setText(tr("%1 LUFS").arg(figure(m_lufs)));
        m_loudnessLabel->setToolTip(
            tr("Loudness of the selection as it will be written; true peak %1 dBTP")
                .arg(figure(m_truePeak)));
    }
}

void CMainWnd::volumeChanged(int n)
{
    const QSignalBlocker blocker(m_volumeSlider);
    m_volumeSlider->setValue(n);
    showVolumeTip();
}

void CMainWnd::onPlay(long long lPos, bool bPreview)
{
    Q_UNUSED(lPos);
    m_previewBtn->setChecked(bPreview);
    m_playBtn->setChecked(!bPreview);
    changeToolTip();
}

void CMainWnd::onPause(bool bPreview)
{
    m_previewBtn->setChecked(false);
    if (!bPreview)
        m_playBtn->setChecked(false);
    changeToolTip();
}

void CMainWnd::onStop()
{
    m_previewBtn->setChecked(false);
    m_playBtn->setChecked(false);
    changeToolTip();
    m_current = CRingToneNode();
}

// --- to the editor ----------------------------------------------------------

void CMainWnd::setBegin(QTime time)
{
    if (time >= m_endTime->time())
        return;
    m_waveWnd->setBeginTime(time);
    m_endTime->setTimeRange(time, m_waveWnd->getMaxTime());
}

void CMainWnd::setEnd(QTime time)
{
    // An end at the very end is refused while a start at 0:00:00 is taken:
    // the asymmetry is kept.
    if (time >= m_waveWnd->getMaxTime())
        return;
    if (m_beginTime->time() >= time)
        return;
    m_waveWnd->setEndTime(time);
    m_beginTime->setTimeRange(QTime(0, 0), time);
}

void CMainWnd::suggest()
{
    SpanProposal proposal;
    if (!m_waveWnd->spanSuggest().next(&proposal))
        return;
    // The end field refuses the song's very end; a proposal ending there
    // ends a millisecond before it.
    const long long total = CTimeConvert::timeToLong(m_waveWnd->getMaxTime());
    const long long end = std::min(proposal.endMs, total - 1);
    const QTime begin = CTimeConvert::longToTime(long(proposal.beginMs));
    // As if typed: an end first when the begin would pass the old end (the
    // begin field refuses that), then the begin, which drags the end along,
    // then the end where it belongs.
    ++m_batch; // one step of undo
    if (proposal.beginMs >= CTimeConvert::timeToLong(m_endTime->time()))
        setEnd(CTimeConvert::longToTime(long(end)));
    setBegin(begin);
    setEnd(CTimeConvert::longToTime(long(end)));
    --m_batch;
    commitEdit();
}

void CMainWnd::suggestionsChanged()
{
    const CSpanSuggest& suggestions = m_waveWnd->spanSuggest();
    const bool any = suggestions.isReady() && !suggestions.proposals().empty();
    m_suggestBtn->setEnabled(any);
    if (m_suggestAct)
        m_suggestAct->setEnabled(any);
}

void CMainWnd::zoom(int value)
{
    m_waveWnd->zoom(float(value / double(kZoomSliderScale)));
}

void CMainWnd::fadeInChecked(int state)
{
    const bool on = state != Qt::Unchecked;
    m_fadeInSpin->setEnabled(on);
    m_waveWnd->enableFadeIn(on);
    commitEdit();
}

void CMainWnd::fadeOutChecked(int state)
{
    const bool on = state != Qt::Unchecked;
    m_fadeOutSpin->setEnabled(on);
    m_waveWnd->enableFadeOut(on);
    commitEdit();
}

void CMainWnd::closeWave()
{
    m_mainStack->setCurrentIndex(0);
    m_waveWnd->stop();
}

// --- the convert flow -------------------------------------------------------

void CMainWnd::convert()
{
    if (m_current.strPath.isEmpty())
        return;
    const QString dir = programCacheDir() + "/";
    QDir().mkpath(dir);

    const RingtoneKind kind = chosenKind();
    // The editor's own times, to the millisecond: 40.0 s is fine, 40.5 s is not.
    const long long length = m_waveWnd->model().endTime() - m_waveWnd->model().beginTime();
    if (CRingtoneExport::isTooLong(length, kind) &&
        QMessageBox::warning(this, QObject::tr("Tonewright"),
                             tr("The selection is %1 seconds long. Phones refuse this kind of "
                                "ringtone when it is longer than %2 seconds.<br>Create it anyway?")
                                 .arg(QString::number(length / 1000.0, 'f', 1))
                                 .arg(CRingtoneExport::format(kind).lengthLimitMs / 1000),
                             QMessageBox::Yes | QMessageBox::No,
                             QMessageBox::No) != QMessageBox::Yes)
        return;

    // Not replacing a ringtone of that name asks for the name again, as typed
    // and selected; only Cancel in the name dialog ends the flow.
    QString name = m_current.strTitle;
    QString path;
    for (bool again = false; path.isEmpty(); again = true) {
        CNameDlg nameDlg(this);
        nameDlg.setObjectName("nameDlg");
        nameDlg.setName(name);
        if (again)
            nameDlg.selectName();
        if (nameDlg.exec() != QDialog::Accepted)
            return;
        name = nameDlg.getName();
        path = ringtonePathFor(dir, name);
    }

    CRingtoneExport& ringtone = m_waveWnd->ringtoneExport();
    ringtone.setKind(kind);
    QSettings().setValue(settingskeys::kRingtoneKind,
                         QString::fromLatin1(CRingtoneExport::format(kind).key));
    // The name as the user gave it is the title; the song's artist stays.
    ringtone.setTags(name, m_current.strArtist);
    m_mainStack->setCurrentIndex(2);
    ++m_writing;
    const int written = m_waveWnd->convertToM4r(path);
    --m_writing;
    if (m_closeWhenWritten) {
        // Asked to close while it was being written.
        m_closeWhenWritten = false;
        close();
        return;
    }
    if (written < 0) {
        notityConvertFailed(1);
        return;
    }
    commitEdit();
    m_mainStack->setCurrentIndex(1);
    m_notice->showMade(ringtone.handedOver() ? CRingtoneExport::libraryPath(name, kind) : path,
                       ringtone.handedOver());
}

RingtoneKind CMainWnd::chosenKind() const
{
    RingtoneKind kind = RingtoneKind::IphoneRingtone;
    CRingtoneExport::kindOfKey(m_kindCombo->currentData().toString(), &kind);
    return kind;
}

QString CMainWnd::ringtonePathFor(const QString& dir, const QString& name)
{
    const RingtoneKind kind = chosenKind();
    if (!CRingtoneExport::replacedInLibrary(name, kind).isEmpty() &&
        QMessageBox::question(this, QObject::tr("Tonewright"),
                              tr("A ringtone named \"%1\" is already in your library.<br>Replace "
                                 "it?")
                                  .arg(safeRingtoneName(name).toHtmlEscaped()),
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) != QMessageBox::Yes)
        return QString();
    return dir + CRingtoneExport::fileName(name, kind);
}

void CMainWnd::notityConvertFailed(int page)
{
    Q_UNUSED(page);
    // Accepted imports the song again, which may fail again: the dialog
    // comes back for as long as the user accepts.
    if (askTryAgain(m_current, SourceProblem::None))
        importWave(m_current);
    else
        m_mainStack->setCurrentIndex(0);
}

bool CMainWnd::askTryAgain(const CRingToneNode& song, SourceProblem problem)
{
    CTryAgainDlg tryAgain(this);
    tryAgain.setObjectName("tryagainDlg");
    tryAgain.setFileName(song.strTitle);
    tryAgain.setProblem(problem);
    return tryAgain.exec() == QDialog::Accepted && CTryAgainDlg::canTryAgain(problem);
}

void CMainWnd::twitter()
{
    const QString status =
        tr("I am creating a ringtone %1 with Tonewright. ").arg(m_current.strTitle) +
        branding::storePage();
    QDesktopServices::openUrl(
        QUrl(branding::twitterHome() + "?status=" + status, QUrl::TolerantMode));
}
