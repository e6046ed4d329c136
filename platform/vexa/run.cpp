// KeloRun: checks a render request and starts its job on the timeline.

#include "job.h"
#include "registry.h"
#include "vexanotify.h"

extern "C" {
#include <libavcodec/codec_id.h>
}

#include <algorithm>
#include <atomic>
#include <cstring>
#include <system_error>

// The engine's codec numbers are libavcodec's.
static_assert(int(KELO_CODEC_PCM_S16LE) == int(AV_CODEC_ID_PCM_S16LE), "PCM id");
static_assert(int(KELO_CODEC_AAC) == int(AV_CODEC_ID_AAC), "AAC id");

namespace {
std::atomic<KeloPostProc> g_post{nullptr};
} // namespace

extern "C" void KeloSetNotifyDispatcher(KeloPostProc post)
{
    g_post.store(post);
}

extern "C" int KeloRun(int timeline, const int* media, int count, const tagKeloRunParam* param)
{
    if (!media || count != 1 || !param || !param->pszFormat || !param->pszDest || !*param->pszDest)
        return KELO_E_ARGUMENT;
    // Every render is 44 100 Hz stereo 16-bit; zeros take those values.
    if ((param->nSampleRate != 0 && param->nSampleRate != KELO_OUTPUT_SAMPLE_RATE) ||
        (param->nChannels != 0 && param->nChannels != 2) ||
        (param->nBitsPerSample != 0 && param->nBitsPerSample != 16) || param->nAudioBitRate < 0)
        return KELO_E_ARGUMENT;

    // Each container takes one codec.
    struct Output
    {
        const char* format;
        int codec;
        vexa::OutputKind kind;
    };
    static const Output kOutputs[] = {{"wav", KELO_CODEC_PCM_S16LE, vexa::OutputKind::Wav},
                                      {"mp4", KELO_CODEC_AAC, vexa::OutputKind::Mp4Aac},
                                      {"ogg", KELO_CODEC_VORBIS, vexa::OutputKind::OggVorbis},
                                      {"mp3", KELO_CODEC_MP3, vexa::OutputKind::Mp3}};
    const Output* output = nullptr;
    for (const Output& o : kOutputs)
        if (std::strcmp(param->pszFormat, o.format) == 0)
            output = &o;
    if (!output || param->nAudioCodec != output->codec)
        return KELO_E_CODEC;

    vexa::Registry& r = vexa::Registry::instance();
    std::lock_guard<std::mutex> lock(r.mutex);
    vexa::Timeline* t = r.timeline(timeline);
    if (!t)
        return KELO_E_HANDLE;
    auto item = r.item(timeline, media[0]);
    if (!item)
        return KELO_E_HANDLE;
    if (item->start < 0 || item->end < 0 || (item->end != 0 && item->end <= item->start))
        return KELO_E_ARGUMENT;

    // Finished jobs leave the list here; their threads have ended or are ending.
    t->jobs.erase(
        std::remove_if(t->jobs.begin(), t->jobs.end(), [](const auto& j) { return j->done(); }),
        t->jobs.end());
    const std::string dest = param->pszDest;
    for (const auto& j : t->jobs) {
        const auto* running = dynamic_cast<const vexa::RenderJob*>(j.get());
        if (running && running->writing() && running->destination() == dest)
            return KELO_E_BUSY;
    }

    vexa::RenderOrder order;
    order.timeline = timeline;
    order.media = media[0];
    order.item = std::move(item);
    order.output = output->kind;
    order.bitRate = param->nAudioBitRate;
    order.dest = dest;
    order.notify = param->pfnNotify;
    order.user = param->pUser;
    order.post = g_post.load();
    auto job = std::make_shared<vexa::RenderJob>(std::move(order));
    try {
        job->start();
    } catch (const std::system_error&) {
        return KELO_E_NOMEM;
    }
    t->jobs.push_back(std::move(job));
    return KELO_OK;
}
