#pragma once
// Media files made with the ffmpeg command line for tests, each made once
// per process into a temporary directory.

#include <QString>

namespace tw {

// Directory the fixtures are written to (a temporary directory of the process).
QString fixtureDir();

// Each returns the path of the file, generating it on first use; an empty
// string if ffmpeg failed. Durations are in seconds.
QString mp3Fixture(int seconds = 5);         // sine, ID3 tags title/artist/album
QString mp4AvFixture(int seconds = 3);       // H.264 video + AAC sound
QString silentVideoFixture(int seconds = 2); // H.264 video only
QString flacFixture(int seconds = 3);
QString wavFixture(int seconds = 3); // 16-bit stereo 44.1 kHz PCM, the 44-byte header alone
QString textFixture();               // a plain text file
QString emptyFixture();              // a zero-byte file
QString mp3WithCoverFixture();       // audio plus an attached JPEG picture

} // namespace tw
