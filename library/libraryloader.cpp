#include "library/libraryloader.h"

#include <itunesagent.h>

#include <QDebug>
#include <QThread>

CLibraryLoader* CLibraryLoader::instance()
{
    static CLibraryLoader loader;
    return &loader;
}

CLibraryLoader::CLibraryLoader() = default;

CLibraryLoader::~CLibraryLoader()
{
    // A scan still running at exit is waited for: the agent's state must
    // outlive its worker.
    if (m_thread)
        m_thread->wait();
}

void CLibraryLoader::start()
{
    if (m_loading)
        return;
    if (m_thread)
        m_thread->wait();
    m_loading = true;
    m_thread.reset(QThread::create([] { ItunesAgentLoad(); }));
    m_thread->setObjectName("library loader");
    connect(m_thread.get(), &QThread::finished, this, [this] {
        m_loading = false;
        qDebug().noquote() << "library loaded:" << ItunesAgentBackend();
        emit loaded();
    });
    m_thread->start(QThread::LowPriority);
}

void CLibraryLoader::whenLoaded(QObject* context, std::function<void()> work)
{
    if (!m_loading) {
        work();
        return;
    }
    auto connection = std::make_shared<QMetaObject::Connection>();
    *connection = connect(this, &CLibraryLoader::loaded, context, [connection, work] {
        QObject::disconnect(*connection);
        work();
    });
}
