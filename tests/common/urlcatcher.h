#pragma once
// Records the addresses the program hands to the desktop (browser, mail
// client, help viewer) for one scheme, instead of opening them.

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>

namespace tw {

class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    explicit UrlCatcher(const QString& scheme, QObject* parent = nullptr);
    ~UrlCatcher() override;

    QList<QUrl> urls;

public slots:
    void open(const QUrl& url);

private:
    QString m_scheme;
};

} // namespace tw
