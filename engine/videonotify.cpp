#include "engine/videonotify.h"

int CVideoNotify::callbackVexaEvent(long long llTime, int nStat)
{
    emit viedoNotify(llTime, nStat);
    return 0;
}
