// The player calls: the table of players by handle, the surface they show
// their pictures on, and the media objects that name an item for a player.

#include "player.h"
#include "registry.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

namespace vexa {

namespace {

struct Players
{
    std::mutex mutex;
    std::map<int, std::unique_ptr<Player>> players;
    int next = 1;
};

Players& players()
{
    static Players p;
    return p;
}

// Held while a picture is handed over, so that a surface taken away is
// never called again once VexaSetEnvironment or VexaRemoveEnvironment returns.
std::mutex& surfaceMutex()
{
    static std::mutex m;
    return m;
}

tagVexaSurface*& currentSurface()
{
    static tagVexaSurface* surface = nullptr;
    return surface;
}

// A media object is the item's identifier, offset so that it is never null.
void* objectOf(int media)
{
    return reinterpret_cast<void*>(static_cast<intptr_t>(media) + 1);
}

int mediaOf(void* object)
{
    return static_cast<int>(reinterpret_cast<intptr_t>(object) - 1);
}

template <typename Call> int withPlayer(int handle, Call call)
{
    Players& p = players();
    std::lock_guard<std::mutex> lock(p.mutex);
    auto it = p.players.find(handle);
    if (it == p.players.end())
        return KELO_E_HANDLE;
    call(*it->second);
    return KELO_OK;
}

} // namespace

void showOnSurface(const uint8_t* pixels, int width, int height, int stride, int64_t position)
{
    std::lock_guard<std::mutex> lock(surfaceMutex());
    tagVexaSurface* surface = currentSurface();
    if (surface && surface->pfnShowFrame)
        surface->pfnShowFrame(surface, pixels, width, height, stride, position);
}

bool surfaceSize(int* width, int* height)
{
    std::lock_guard<std::mutex> lock(surfaceMutex());
    tagVexaSurface* surface = currentSurface();
    if (!surface || !surface->pfnTargetSize)
        return false;
    int32_t w = 0;
    int32_t h = 0;
    surface->pfnTargetSize(surface, &w, &h);
    *width = w;
    *height = h;
    return true;
}

} // namespace vexa

using vexa::Registry;

extern "C" int KeloGetMediaObject(int timeline, int media, void** ppObject)
{
    if (!ppObject)
        return KELO_E_ARGUMENT;
    Registry& r = Registry::instance();
    std::lock_guard<std::mutex> lock(r.mutex);
    if (!r.item(timeline, media))
        return KELO_E_HANDLE;
    *ppObject = vexa::objectOf(media);
    return KELO_OK;
}

extern "C" int VexaSetEnvironment(tagVexaSurface* surface)
{
    std::lock_guard<std::mutex> lock(vexa::surfaceMutex());
    vexa::currentSurface() = surface;
    return KELO_OK;
}

extern "C" int VexaRemoveEnvironment(tagVexaSurface* surface)
{
    std::lock_guard<std::mutex> lock(vexa::surfaceMutex());
    if (vexa::currentSurface() == surface)
        vexa::currentSurface() = nullptr;
    return KELO_OK;
}

extern "C" int VexaCreateEx(const tagVexaCreateParam* param, int, int, int* pPlayer)
{
    if (!param || !pPlayer || !param->pMediaObject)
        return KELO_E_ARGUMENT;
    std::shared_ptr<const vexa::MediaItem> item;
    {
        Registry& r = Registry::instance();
        std::lock_guard<std::mutex> lock(r.mutex);
        item = r.item(param->nTimeline, vexa::mediaOf(param->pMediaObject));
    }
    if (!item)
        return KELO_E_HANDLE;
    auto player = std::make_unique<vexa::Player>(item, param->nWidth, param->nHeight,
                                                 param->pfnEvent, param->pUser);
    vexa::Players& p = vexa::players();
    std::lock_guard<std::mutex> lock(p.mutex);
    const int handle = p.next++;
    p.players.emplace(handle, std::move(player));
    *pPlayer = handle;
    return KELO_OK;
}

extern "C" int VexaPlay(int player)
{
    return vexa::withPlayer(player, [](vexa::Player& p) { p.play(); });
}

extern "C" int VexaPause(int player)
{
    return vexa::withPlayer(player, [](vexa::Player& p) { p.pause(); });
}

extern "C" int VexaSeekToPos(int player, int64_t position)
{
    return vexa::withPlayer(player, [position](vexa::Player& p) { p.seek(position); });
}

extern "C" int VexaDestroy(int player)
{
    std::unique_ptr<vexa::Player> doomed;
    {
        vexa::Players& p = vexa::players();
        std::lock_guard<std::mutex> lock(p.mutex);
        auto it = p.players.find(player);
        if (it == p.players.end())
            return KELO_E_HANDLE;
        doomed = std::move(it->second);
        p.players.erase(it);
    }
    // Joins the player's thread outside the table's lock.
    doomed.reset();
    return KELO_OK;
}
