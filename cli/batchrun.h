#pragma once
// -d: one ringtone per input, each made by a child run of this program
// (one input, -o, quiet), at most `jobs` at a time, so that every core
// works. Each ringtone is named after its input (the ringtone file name of
// its base name). Reports each input as it ends and a summary; adds the
// made ringtones to the library one after the other when asked (the library
// is written by this process only). Needs the application object.

#include "cli/clioptions.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <map>
#include <memory>

class QProcess;
class CConsoleProgress;
class CPathAlias;

class CBatchRun : public QObject
{
    Q_OBJECT

public:
    explicit CBatchRun(const CliOptions& options, QObject* parent = nullptr);
    ~CBatchRun() override;

    // kExitOk when every input made its ringtone, kExitBatchFailed
    // otherwise, or the code of a failure that stops the whole batch (the
    // folder cannot be made).
    int run();

    // The ringtone an input becomes in `directory`.
    static QString outputFor(const QString& directory, const QString& input,
                             RingtoneKind kind = RingtoneKind::IphoneRingtone);

signals:
    // The last child run has ended.
    void allDone();

private:
    struct Item
    {
        QString input;
        QString output;
        int exitCode = -1; // -1 while not done
        QString message;
    };

    void startNext();
    void finished(int index, QProcess* process);
    void report(const Item& item);

    CliOptions m_options;
    QVector<Item> m_items;
    int m_next = 0;
    int m_running = 0;
    int m_done = 0;
    CConsoleProgress* m_progress = nullptr;
    // A running child's input by a name it can be handed (see CPathAlias).
    std::map<int, std::unique_ptr<CPathAlias>> m_aliases;
};
