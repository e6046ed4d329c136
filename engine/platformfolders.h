#pragma once
// The one place that decides the program's folders and tells the platform
// libraries about them: they read no HOME or XDG variables of their own.
//
//   settings          ~/.config/vandrel/tonewright.conf            (QSettings)
//   scratch space     <cache>  = ~/.cache/vandrel/tonewright        temporary WAVs, ringtones,
//                                                                  the library's scan cache
//   data              <data>   = ~/.local/share/vandrel/tonewright  the engine's day logs
//   media library     ~/Music, ~/Videos (the XDG user folders), or the library file named by
//                     TONEWRIGHT_LIBRARY_XML
//
// Call after the application's identity is set (the folders depend on it).

#include <QString>

// The scratch space: temporary WAV files, written ringtones, scan cache.
QString programCacheDir();
// Where the engine writes its logs (under "log").
QString programDataDir();

// Tells the media engine its data folder and the library agent its Music,
// Videos and cache folders and its library file.
void tellPlatformFolders();
