#include "engine/progressdlg.h"

#include "engine/gifsupported.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLabel>
#include <QMovie>
#include <QTimer>
#include <QVBoxLayout>

#include <vexa.h>

namespace {
// What a phase shown without waiting reads: all but done.
constexpr float kAllButDone = KELO_PROGRESS_DONE - 1;
// How often a wait looks at the progress when nothing else wakes it.
constexpr int kPollMs = 25;
} // namespace

CProgressDlg::CProgressDlg(QWidget* parent)
    : QWidget(parent), progress(0.0f), status(KELO_PROGRESS_DONE), flag(false),
      m_animationLabel(nullptr), m_movie(nullptr), m_percentLabel(nullptr)
{
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    m_animationLabel = new QLabel(this);
    m_animationLabel->setAlignment(Qt::AlignCenter);
    m_movie = new QMovie(CGifSupported::getSupportedGIF() ? ":/animations/progress"
                                                          : ":/animations/helloPNG");
    if (!m_movie->isValid()) {
        // Deliberately left half-built: no layout, no percent label, and
        // start() must not be called.
        delete layout;
        return;
    }
    m_animationLabel->setMovie(m_movie);
    m_movie->start();
    layout->addWidget(m_animationLabel);
    setLayout(layout);

    // Outside the layout: it sits on top of the animation, centred by start().
    m_percentLabel = new QLabel(this);
    m_percentLabel->setObjectName("percentLabel");
    m_percentLabel->setAlignment(Qt::AlignCenter);
    m_percentLabel->raise();
}

CProgressDlg::~CProgressDlg()
{
    delete m_movie;
}

void CProgressDlg::setProgress(int progressValue, int statusValue)
{
    progress.store(static_cast<float>(progressValue), std::memory_order_relaxed);
    status.store(statusValue, std::memory_order_relaxed);
}

void CProgressDlg::finish() {}

int CProgressDlg::start(float weight, float offset, bool wait)
{
    Q_ASSERT_X(m_percentLabel, "CProgressDlg::start", "called on a pane without its animation");
    // Without waiting the phase is shown as all but done.
    progress.store(wait ? 0.0f : kAllButDone, std::memory_order_relaxed);
    m_percentLabel->move(width() / 2 - m_percentLabel->width() / 2,
                         height() / 2 - m_percentLabel->height() / 2);
    m_percentLabel->raise();
    // While waiting, sleep until something happens (the engine's progress is
    // posted to this thread, the animation ticks) or the poll comes round:
    // a spinning loop would take a core from the conversion.
    QTimer poll;
    QEventLoop::ProcessEventsFlags flags = QEventLoop::ExcludeUserInputEvents;
    if (wait) {
        poll.start(kPollMs);
        flags |= QEventLoop::WaitForMoreEvents;
    }
    do {
        QCoreApplication::processEvents(flags);
        const float current = progress.load(std::memory_order_relaxed);
        const int value = static_cast<int>(current / 100.0 * weight + offset * 100.0);
        if (current >= KELO_PROGRESS_DONE) {
            m_percentLabel->setText(QString("%1%").arg(value));
            break;
        }
        // The status stays negative, so the next start fails at once too
        // unless the engine reports a good status in between.
        if (status.load(std::memory_order_relaxed) < 0)
            return -2;
        m_percentLabel->setText(QString("%1%").arg(value));
    } while (wait);
    status.store(KELO_PROGRESS_DONE, std::memory_order_relaxed);
    return 1;
}
