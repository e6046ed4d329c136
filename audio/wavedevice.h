#pragma once
// The WAV engine's audio device: starting SDL as the program's sound output,
// opening the one device with a fall-back to SDL's dummy driver when there
// is no sound card (the wave still opens and exports, playback is silent),
// and SDL's audio lock. Private to audio/: only the engine's own files
// include this header. SDL owns the device; the engine's public calls open
// and close it for one record at a time. Called on the thread that uses the
// record (the GUI thread in the program); the lock is what that thread
// shares with SDL's audio thread.

class QString;
struct SDL_AudioSpec;

namespace wav {

// Switches SDL's audio to its dummy driver so that a machine without a
// sound device still opens and exports waves; playback is then silent.
bool useDummyAudio();

// Notes on the debug log why the real device could not be used.
void logAudioUnavailable(const QString& why);

// Starts the timer, audio and video subsystems that are not running yet.
// 0 on success (perhaps on the dummy driver), -1 on failure.
int initSdl();

// Opens the device as `desired` asks, SDL converting to what the device
// plays; retried on the dummy driver when the real one fails and no other
// record holds the device.
int openAudio(SDL_AudioSpec* desired);

// Holds SDL's audio lock for a scope. The callback runs with this lock held,
// so the user-interface side takes it for every field the callback reads or
// writes: the play stream (a seek must not fall between the callback's
// position read and its data read), the state, the volume and the fades.
// SDL's lock is recursive, and taking it without an open device does nothing.
class AudioLock
{
public:
    AudioLock();
    ~AudioLock();
    AudioLock(const AudioLock&) = delete;
    AudioLock& operator=(const AudioLock&) = delete;
};

} // namespace wav
