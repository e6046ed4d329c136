// The update service's reply over any bytes: the XML reader, the Base64
// description, and the version comparison of whatever version it names.

#include "update/updatereply.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray document(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const UpdateReply reply = parseUpdateReply(document);
    if (reply.wellFormed) {
        const int newer = compareVersions(QStringLiteral("1.4.0"), reply.version);
        if (newer < -1 || newer > 1)
            __builtin_trap();
        // Both ways round, and against itself.
        (void)compareVersions(reply.version, QStringLiteral("1.4.0"));
        if (compareVersions(reply.version, reply.version) != 0)
            __builtin_trap();
    }
    return 0;
}
