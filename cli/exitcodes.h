#pragma once
// How a run of tonewright-cli ends: one code for each way, printed by --help
// and listed in the README, so that scripts can tell failures apart.

enum CliExitCode : int
{
    kExitOk = 0,
    kExitConversionFailed = 1, // the input could not be decoded or the ringtone not encoded
    kExitUsage = 2,            // an unknown option, a missing or bad value, a bad combination
    kExitInputUnreadable = 3,  // the input does not exist, is a folder or cannot be read
    kExitNoAudio = 4,          // the input has no audio stream
    kExitStartAfterEnd = 5,    // the start lies at or after the end (or the input's end)
    kExitTooShort = 6,         // the span is shorter than 5 seconds
    kExitTooLong = 7,          // the span is 40 seconds or longer, without --allow-long
    kExitOutputExists = 8,     // the output exists, without --force
    kExitOutputUnwritable = 9, // the output's folder is missing or refuses the file
    kExitLibraryFailed = 10,   // the ringtone was written but the library refused it
    kExitBatchFailed = 11,     // -d: at least one input failed (each is reported)
    kExitNotMedia = 12         // the input is not a media file
};
