#pragma once
// FFmpeg's log through the engine's logger (KeloLogMessage), errors and worse
// only, instead of FFmpeg's own printing to standard error.

namespace vexa {

// Installs the routing once; every way into FFmpeg calls it first.
void routeFfmpegLog();

} // namespace vexa
