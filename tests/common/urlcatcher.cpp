#include "urlcatcher.h"

#include <QDesktopServices>

namespace tw {

UrlCatcher::UrlCatcher(const QString& scheme, QObject* parent) : QObject(parent), m_scheme(scheme)
{
    QDesktopServices::setUrlHandler(scheme, this, "open");
}

UrlCatcher::~UrlCatcher()
{
    QDesktopServices::unsetUrlHandler(m_scheme);
}

void UrlCatcher::open(const QUrl& url)
{
    urls << url;
}

} // namespace tw
