#pragma once
// File names as the file system has them. A name may hold bytes that are
// not UTF-8 (written under another locale); Qt would turn each into U+FFFD
// and so name another file. Here such a byte becomes one of the code points
// U+DC80..U+DCFF, which no valid UTF-8 produces, and encode() gives it back,
// so a name read from the command line is written and opened as it was.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace localpath {

// The arguments, the program first, as QCoreApplication::arguments() but
// with every byte kept.
QStringList arguments(int argc, char** argv);
// One argument's bytes as text.
QString decode(const QByteArray& bytes);
// The bytes of a name (or a message that holds one) as decode() had them.
QByteArray encode(const QString& text);
// Whether `text` holds bytes that Qt's own calls would not write back.
bool hasRawBytes(const QString& text);
// For a tag or a title: each kept byte shown as U+FFFD.
QString readable(const QString& text);
// The path from the root, and its folder: worked out on the text itself,
// since QFileInfo would not keep the bytes.
QString absolute(const QString& path);
QString folderOf(const QString& path);

} // namespace localpath
