#include "core/language.h"

#include "core/settingskeys.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

namespace {

// Loads `name` with the toolkit's lookup (".qm" tried, the name shortened at
// its last "_" or "." when the exact file is missing) and installs it; null
// when nothing loads.
std::unique_ptr<QTranslator> install(const QString& name)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(name))
        return nullptr;
    QCoreApplication::installTranslator(translator.get());
    return translator;
}

void remove(std::unique_ptr<QTranslator>& translator)
{
    if (!translator)
        return;
    QCoreApplication::removeTranslator(translator.get());
    translator.reset();
}

} // namespace

CLanguage* CLanguage::instance()
{
    // Never destroyed: the translators stay until the process ends.
    static CLanguage* language = new CLanguage;
    return language;
}

CLanguage::CLanguage() = default;

CLanguage::~CLanguage()
{
    remove(m_appTranslator);
    remove(m_qtTranslator);
}

QString CLanguage::appTranslatorFile() const
{
    return m_appTranslator ? m_appTranslator->filePath() : QString();
}

QString CLanguage::qtTranslatorFile() const
{
    return m_qtTranslator ? m_qtTranslator->filePath() : QString();
}

void CLanguage::translatorLan(QString code)
{
    if (code.isEmpty())
        code = QLocale::system().name();
    qDebug().noquote() << "change language:" << code;
    remove(m_appTranslator);
    remove(m_qtTranslator);
    if (code != QLatin1String("en")) {
        m_appTranslator = install("Tonewright_" + code);
        m_qtTranslator = install("qt_" + code);
    }
    // English is the choice as well as the fallback; no toolkit texts for it.
    if (!m_appTranslator)
        m_appTranslator = install("Tonewright_en");
}

void CLanguage::choose(const QString& code)
{
    QSettings().setValue(settingskeys::kLanguage, code);
    translatorLan(code);
}

void CLanguage::restore()
{
    translatorLan(QSettings().value(settingskeys::kLanguage).toString());
}

QString CLanguage::currentCode() const
{
    // "Tonewright_fr.qm" → "fr"; a regional file keeps its language only.
    const QString base = QFileInfo(appTranslatorFile()).completeBaseName();
    const QString code = base.mid(base.indexOf('_') + 1).left(2);
    return m_appTranslator && base.contains('_') ? code : QStringLiteral("en");
}
