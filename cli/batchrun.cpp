#include "cli/batchrun.h"

#include "cli/consoleprogress.h"
#include "cli/exitcodes.h"
#include "cli/interruptcleanup.h"
#include "cli/localpath.h"
#include "cli/pathalias.h"
#include "cli/ringtonemaker.h"
#include "editor/ringtoneexport.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <QThread>

#include <cstdio>
#include <memory>

CBatchRun::CBatchRun(const CliOptions& options, QObject* parent)
    : QObject(parent), m_options(options)
{
}

CBatchRun::~CBatchRun() = default;

QString CBatchRun::outputFor(const QString& directory, const QString& input, RingtoneKind kind)
{
    return QDir(directory).filePath(
        CRingtoneExport::fileName(QFileInfo(input).completeBaseName(), kind));
}

int CBatchRun::run()
{
    if (!QDir().mkpath(m_options.directory)) {
        std::fprintf(stderr, "tonewright-cli: %s: the folder cannot be made\n",
                     QFile::encodeName(m_options.directory).constData());
        return kExitOutputUnwritable;
    }

    // Two inputs of the same name would write one file: the later ones fail.
    QSet<QString> taken;
    for (const QString& input : m_options.inputs) {
        Item item;
        item.input = input;
        item.output = outputFor(m_options.directory, input, m_options.kind);
        if (taken.contains(item.output)) {
            item.exitCode = kExitOutputExists;
            item.message =
                QString("%1: another input is already made into %2").arg(input, item.output);
        }
        taken.insert(item.output);
        m_items.push_back(item);
    }

    const int jobs = m_options.jobs > 0 ? m_options.jobs : std::max(1, QThread::idealThreadCount());
    auto progress = std::make_unique<CConsoleProgress>(
        CConsoleProgress::modeFor(m_options.quiet),
        QString("%1 inputs, %2 at a time").arg(m_items.size()).arg(jobs));
    m_progress = progress.get();
    m_progress->update(0);
    for (Item& item : m_items) {
        if (item.exitCode >= 0) {
            ++m_done;
            report(item);
        }
    }

    QEventLoop loop;
    connect(this, &CBatchRun::allDone, &loop, &QEventLoop::quit);
    for (int i = 0; i < jobs; ++i)
        startNext();
    if (m_running > 0)
        loop.exec();
    m_progress->finish();
    m_progress = nullptr;

    int made = 0;
    for (const Item& item : m_items) {
        if (item.exitCode != kExitOk)
            continue;
        ++made;
        if (m_options.addToLibrary &&
            CRingtoneExport::addToLibrary(QFileInfo(item.output).absoluteFilePath()) != 0) {
            std::fprintf(stderr, "tonewright-cli: %s: written, but the library did not take it\n",
                         QFile::encodeName(item.output).constData());
            --made;
        }
    }
    const int failed = int(m_items.size()) - made;
    std::printf("%d of %d ringtones made, %d failed\n", made, int(m_items.size()), failed);
    std::fflush(stdout);
    return failed == 0 ? kExitOk : kExitBatchFailed;
}

void CBatchRun::startNext()
{
    while (m_next < m_items.size() && m_items[m_next].exitCode >= 0)
        ++m_next;
    if (m_next >= m_items.size())
        return;
    const int index = m_next++;
    auto* process = new QProcess(this);
    process->setProgram(QCoreApplication::applicationFilePath());
    // A child's arguments travel as UTF-8: an input whose name is not goes
    // by its alias, and its ringtone by the readable form of its name.
    auto alias = std::make_unique<CPathAlias>(m_items[index].input);
    process->setArguments(
        childArguments(m_options, alias->path(), localpath::readable(m_items[index].output)));
    m_aliases[index] = std::move(alias);
    connect(process, &QProcess::finished, this,
            [this, index, process] { finished(index, process); });
    connect(process, &QProcess::errorOccurred, this,
            [this, index, process](QProcess::ProcessError e) {
                if (e == QProcess::FailedToStart)
                    finished(index, process);
            });
    // The child is interrupted with the batch, and cleans up after itself.
    connect(process, &QProcess::started, this, [process] {
        process->setProperty("pid", process->processId());
        interruptcleanup::addChild(process->processId());
    });
    ++m_running;
    process->start();
}

void CBatchRun::finished(int index, QProcess* process)
{
    Item& item = m_items[index];
    interruptcleanup::forgetChild(process->property("pid").toLongLong());
    m_aliases.erase(index);
    if (process->exitStatus() == QProcess::NormalExit &&
        process->error() != QProcess::FailedToStart) {
        item.exitCode = process->exitCode();
        item.message = QString::fromLocal8Bit(process->readAllStandardOutput()).trimmed();
        const QString errors = QString::fromLocal8Bit(process->readAllStandardError()).trimmed();
        if (item.exitCode != kExitOk && !errors.isEmpty())
            item.message = errors;
    } else {
        item.exitCode = kExitConversionFailed;
        item.message =
            QString("%1: the conversion stopped (%2)").arg(item.input, process->errorString());
    }
    process->deleteLater();
    --m_running;
    ++m_done;
    report(item);
    startNext();
    if (m_running == 0)
        emit allDone();
}

void CBatchRun::report(const Item& item)
{
    if (m_progress)
        m_progress->finish();
    if (item.exitCode == kExitOk) {
        if (!m_options.quiet)
            std::printf("%s\n", item.message.toLocal8Bit().constData());
    } else {
        std::fprintf(stderr, "%s\n", item.message.toLocal8Bit().constData());
    }
    std::fflush(stdout);
    std::fflush(stderr);
    if (m_progress)
        m_progress->update(m_done * 100 / int(m_items.size()));
}
