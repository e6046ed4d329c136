#pragma once
// CLibraryLoader: loads the media library on a worker thread, so that the
// window paints and answers while the library agent reads the user's
// library (TagLib over every file of the Music and Videos folders, or a
// large library file). Started once at start-up; the models ask it whether
// a load is under way and put off their agent calls until `loaded`. A
// process-wide singleton; its signal comes on the GUI thread. Before start()
// nothing is loading: the agent then loads on the first call that needs it.

#include <QObject>

#include <functional>
#include <memory>

class QThread;

class CLibraryLoader : public QObject
{
    Q_OBJECT

public:
    static CLibraryLoader* instance();
    ~CLibraryLoader() override;

    // Starts the load on a worker thread; does nothing while one runs.
    void start();
    // A load started by start() has not ended yet.
    bool isLoading() const { return m_loading; }
    // Runs `work` on the GUI thread once no load is under way: at once when
    // none is, else when it ends (if `context` still exists then).
    void whenLoaded(QObject* context, std::function<void()> work);

signals:
    // The load has ended; the agent answers from memory again.
    void loaded();

private:
    CLibraryLoader();

    std::unique_ptr<QThread> m_thread;
    bool m_loading = false;
};
