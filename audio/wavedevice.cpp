#include "audio/wavedevice.h"

#include <QDebug>
#include <QString>

#include <SDL.h>

#include <cstring>

namespace wav {

bool useDummyAudio()
{
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    SDL_SetHintWithPriority(SDL_HINT_AUDIODRIVER, "dummy", SDL_HINT_OVERRIDE);
    const bool ok = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    SDL_ResetHint(SDL_HINT_AUDIODRIVER);
    return ok;
}

void logAudioUnavailable(const QString& why)
{
    qDebug().noquote() << "audio device unavailable:" << why;
}

int initSdl()
{
    // SDL is only our sound output: it must not take Ctrl+C and SIGTERM
    // from the program, nor keep the screen saver from starting.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    const Uint32 wanted = SDL_INIT_TIMER | SDL_INIT_AUDIO | SDL_INIT_VIDEO;
    const Uint32 missing = wanted & ~SDL_WasInit(0xFFFF);
    if (missing == 0 || SDL_Init(missing) >= 0)
        return 0;
    if ((missing & SDL_INIT_AUDIO) == 0)
        return -1;
    const QString why = QString::fromUtf8(SDL_GetError());
    // Only a failing audio driver is worth the fallback.
    if (SDL_Init(missing & ~SDL_INIT_AUDIO) < 0)
        return -1;
    logAudioUnavailable(why);
    return useDummyAudio() ? 0 : -1;
}

int openAudio(SDL_AudioSpec* desired)
{
    // A device that is already open belongs to another record: report that
    // failure as it is instead of replacing the driver under it.
    const bool busy = SDL_GetAudioStatus() != SDL_AUDIO_STOPPED;
    const int result = SDL_OpenAudio(desired, nullptr);
    if (result >= 0 || busy)
        return result;
    const char* driver = SDL_GetCurrentAudioDriver();
    if (driver && std::strcmp(driver, "dummy") == 0)
        return result;
    logAudioUnavailable(QString::fromUtf8(SDL_GetError()));
    if (!useDummyAudio())
        return result;
    return SDL_OpenAudio(desired, nullptr);
}

AudioLock::AudioLock()
{
    SDL_LockAudio();
}

AudioLock::~AudioLock()
{
    SDL_UnlockAudio();
}

} // namespace wav
