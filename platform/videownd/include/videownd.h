#pragma once
// CVideoWnd: the widget a video player shows its pictures on. The player's
// thread hands each picture over through the engine's surface calls; the
// widget keeps the newest one (one copy, made on that thread) and paints it
// scaled to fit with its shape kept, on black, so a picture is never seen
// half written. It tells players its size in device pixels, so pictures come
// ready to paint. Hand surface() to VexaSetEnvironment; the widget takes it
// back from the engine when it goes. GUI thread, but for the surface calls.

#include <vexa.h>

#include <QImage>
#include <QWidget>

#include <atomic>
#include <mutex>

class CVideoWnd : public QWidget
{
    Q_OBJECT

public:
    explicit CVideoWnd(QWidget* parent = nullptr);
    ~CVideoWnd() override;

    tagVexaSurface* surface() { return &m_surface.base; }
    // The newest picture and its position (a null image before the first).
    QImage frame() const;
    qint64 framePosition() const;
    // Pictures received so far.
    int frameCount() const { return m_frames.load(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Surface
    {
        tagVexaSurface base;
        CVideoWnd* owner;
    };
    static void targetSize(tagVexaSurface* surface, int32_t* width, int32_t* height);
    static void showFrame(tagVexaSurface* surface, const uint8_t* pixels, int32_t width,
                          int32_t height, int32_t stride, int64_t position);
    void updateTargetSize();

    Surface m_surface;
    mutable std::mutex m_mutex;
    QImage m_frame;
    qint64 m_position = 0;
    std::atomic<int> m_frames{0};
    std::atomic<bool> m_updatePending{false};
    std::atomic<int> m_targetWidth{0};
    std::atomic<int> m_targetHeight{0};
};
