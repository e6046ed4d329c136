#include "editor/spansuggest.h"

#include "engine/convertwraper.h"

#include <QFile>
#include <QMetaObject>
#include <QSysInfo>
#include <QtEndian>

namespace {

// Frames read at a time: 6 s of CD audio.
constexpr long long kBlockFrames = 1 << 18;

} // namespace

CSpanSuggest::CSpanSuggest(QObject* parent) : QObject(parent) {}

CSpanSuggest::~CSpanSuggest()
{
    stopWorker();
}

void CSpanSuggest::stopWorker()
{
    if (m_cancel)
        *m_cancel = true;
    if (m_worker.joinable())
        m_worker.join();
    m_cancel.reset();
}

void CSpanSuggest::start(const QString& path, const tagWaveInfo& wave, long long lengthMs)
{
    clear();
    const unsigned long long generation = m_generation;
    m_cancel = std::make_shared<std::atomic<bool>>(false);
    // The worker works on its own copies (readFeatures takes the plain
    // fields of the layout only).
    const tagWaveInfo layout = wave;
    m_worker = std::thread([this, path, layout, lengthMs, generation, cancel = m_cancel] {
        std::vector<SpanProposal> proposals = analyse(path, layout, lengthMs, cancel.get());
        if (*cancel)
            return;
        QMetaObject::invokeMethod(
            this,
            [this, generation, proposals = std::move(proposals)]() mutable {
                deliver(generation, std::move(proposals));
            },
            Qt::QueuedConnection);
    });
}

void CSpanSuggest::clear()
{
    stopWorker();
    ++m_generation;
    m_proposals.clear();
    m_ready = false;
    m_taken = -1;
}

bool CSpanSuggest::next(SpanProposal* proposal)
{
    if (!m_ready || m_proposals.empty())
        return false;
    m_taken = (m_taken + 1) % int(m_proposals.size());
    *proposal = m_proposals[std::size_t(m_taken)];
    return true;
}

void CSpanSuggest::deliver(unsigned long long generation, std::vector<SpanProposal> proposals)
{
    if (generation != m_generation)
        return; // found for a song that is no longer open
    if (m_worker.joinable())
        m_worker.join();
    m_proposals = std::move(proposals);
    m_ready = true;
    m_taken = -1;
    emit ready();
}

std::vector<SpanProposal> CSpanSuggest::analyse(const QString& path, const tagWaveInfo& wave,
                                                long long lengthMs, const std::atomic<bool>* cancel)
{
    const std::unique_ptr<CSpanFeatures> features = readFeatures(path, wave, cancel);
    if (!features || (cancel && *cancel))
        return {};
    return CSpanFinder().propose(features->frames(), features->frameMs(), features->durationMs(),
                                 lengthMs, cancel);
}

std::vector<SpanProposal> CSpanSuggest::analyseSource(const QString& path, long long lengthMs,
                                                      long long* durationMs,
                                                      const std::atomic<bool>* cancel)
{
    if (durationMs)
        *durationMs = 0;
    // Mono at the analysis rate: the decoder's resampler does the mixing
    // and the low-pass that a 44.1 kHz WAV would need here.
    CSpanFeatures features(kSpanAnalysisRate, 1);
    if (!features.isValid())
        return {};
    const int rc =
        CConvertWraper::decodePcm(QFile::encodeName(path).constData(), kSpanAnalysisRate, 1,
                                  [&features, cancel](const short* samples, int frames) {
                                      features.addFrames(samples, std::size_t(frames));
                                      return !(cancel && *cancel);
                                  });
    if (rc < 0 || (cancel && *cancel))
        return {};
    features.finish();
    if (durationMs)
        *durationMs = features.durationMs();
    return CSpanFinder().propose(features.frames(), features.frameMs(), features.durationMs(),
                                 lengthMs, cancel);
}

std::unique_ptr<CSpanFeatures> CSpanSuggest::readFeatures(const QString& path,
                                                          const tagWaveInfo& wave,
                                                          const std::atomic<bool>* cancel)
{
    const bool bits16 = wave.silence == 0;
    const int channels = bits16 ? wave.frameBytes / 2 : wave.frameBytes;
    if (channels < 1 || channels > 2 || wave.sampleRate == 0)
        return {};
    // The song as it is: the plain layout without fades, streams or tables.
    tagWaveInfo layout{};
    layout.frameCount = wave.frameCount;
    layout.sampleRate = wave.sampleRate;
    layout.frameBytes = wave.frameBytes;
    layout.silence = wave.silence;
    layout.volume = 100;
    layout.fadeInStart = layout.fadeInEnd = layout.fadeOutStart = layout.fadeOutEnd = -1;
    auto features = std::make_unique<CSpanFeatures>(int(wave.sampleRate), channels);
    if (!features->isValid())
        return nullptr;
    const QByteArray file = QFile::encodeName(path);
    std::vector<std::int16_t> samples(std::size_t(kBlockFrames) * channels);
    std::vector<unsigned char> bytes(bits16 ? 0 : samples.size());
    for (long long first = 0; first < wave.frameCount; first += kBlockFrames) {
        if (cancel && *cancel)
            return nullptr;
        const long long want = std::min<long long>(kBlockFrames, wave.frameCount - first);
        unsigned char* into =
            bits16 ? reinterpret_cast<unsigned char*>(samples.data()) : bytes.data();
        const long long got = WaveHelperReadFaded(&layout, file.constData(), first, want, into);
        if (got <= 0)
            break;
        const std::size_t n = std::size_t(got) * channels;
        for (std::size_t i = 0; i < n; ++i) {
            if (!bits16)
                samples[i] = static_cast<std::int16_t>((int(bytes[i]) - 128) * 256);
            else if constexpr (QSysInfo::ByteOrder == QSysInfo::BigEndian)
                samples[i] = qFromLittleEndian<qint16>(&samples[i]);
        }
        features->addFrames(samples.data(), std::size_t(got));
        if (got < want)
            break;
    }
    features->finish();
    if (cancel && *cancel)
        return nullptr;
    return features;
}
