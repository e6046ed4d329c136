#pragma once
// The program's links in rich text: its link colour, underlined.

#include <QString>

// The colour of every link the program shows.
inline const char* const kLinkColour = "#32A0FB";

// An anchor to `target` that reads `text`.
inline QString linkText(const QString& target, const QString& text)
{
    return QStringLiteral("<a href=\"%1\" style=\"color:%2; text-decoration:underline;\">%3</a>")
        .arg(target, QLatin1String(kLinkColour), text.toHtmlEscaped());
}
