#pragma once
// The update service's reply and the version comparison, without a network:
// what CUpdate reads out of the XML document, and whether an offered version
// is newer. Stateless; any thread.

#include <QByteArray>
#include <QString>

struct UpdateReply
{
    bool wellFormed = false;
    QString productCode; // "upd:ProductCode"; empty for an unknown product
    QString displayName; // "upd:ProductDisplayName"
    QString version;     // "upd:ProductVer"
    QString downloadUrl; // "upd:DownloadURL"
    QString whatsNew;    // "upd:WhatsNew"/"upd:Description", Base64 of UTF-8, decoded
};

// Reads the direct children of the document element by their literal names
// (the "upd:" prefix included, no namespace processing); absent ones are empty.
UpdateReply parseUpdateReply(const QByteArray& document);

// Greater than 0 when `offered` is newer than `current`. Equal texts give 0;
// a current version of fewer parts gives 1 at once; otherwise parts are
// compared as numbers up to the offered version's count, and anything that
// is not a number, or no difference, gives -1.
int compareVersions(const QString& current, const QString& offered);
