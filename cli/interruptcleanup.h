#pragma once
// What an interrupted command line leaves behind: nothing. SIGINT and
// SIGTERM remove every file marked temporary (the engine's half-written
// files, the temporary WAV, the staging ringtone; see KeloMarkTemporary),
// pass the signal on to a batch's children, which clean up the same way,
// and then end the process by that signal, as it would have ended anyway.

namespace interruptcleanup {

// Once, on the main thread, before any work.
void install();
// A batch child that hears the signal too, until forgotten.
void addChild(long long pid);
void forgetChild(long long pid);

} // namespace interruptcleanup
