#include "update/updatereply.h"

#include <QDomDocument>
#include <QDomElement>
#include <QStringList>

namespace {

QString childText(const QDomElement& parent, const char* name)
{
    return parent.firstChildElement(QString::fromLatin1(name)).text();
}

} // namespace

UpdateReply parseUpdateReply(const QByteArray& document)
{
    UpdateReply reply;
    QDomDocument dom;
    if (!dom.setContent(document, false))
        return reply;
    reply.wellFormed = true;
    const QDomElement root = dom.documentElement();
    reply.productCode = childText(root, "upd:ProductCode");
    reply.displayName = childText(root, "upd:ProductDisplayName");
    reply.version = childText(root, "upd:ProductVer");
    reply.downloadUrl = childText(root, "upd:DownloadURL");
    // State, description address, checksum and format are sent but unused.
    const QDomElement whatsNew = root.firstChildElement("upd:WhatsNew");
    const QByteArray base64 = childText(whatsNew, "upd:Description").toLocal8Bit();
    const QByteArray text = QByteArray::fromBase64(base64);
    // Read as UTF-8 up to the first zero byte.
    reply.whatsNew = QString::fromUtf8(text.constData(), qstrnlen(text.constData(), text.size()));
    return reply;
}

int compareVersions(const QString& current, const QString& offered)
{
    if (current == offered)
        return 0;
    const QStringList mine = current.split('.');
    const QStringList theirs = offered.split('.');
    // Fewer parts count as older, whatever the numbers (1.4 against 1.4.0).
    if (mine.size() < theirs.size())
        return 1;
    for (int i = 0; i < theirs.size(); ++i) {
        bool okMine = false;
        bool okTheirs = false;
        const int a = mine[i].toInt(&okMine, 10);
        const int b = theirs[i].toInt(&okTheirs, 10);
        if (!okMine || !okTheirs)
            return -1;
        if (a < b)
            return 1;
        if (a > b)
            return -1;
    }
    // Equal numbers written differently (1.4.0, 1.4.00), or more parts in
    // the current version: not newer, on purpose.
    return -1;
}
