#pragma once
// CLanguage: installs and replaces the application's translators — the
// program's own texts ("Tonewright_" + code) and the toolkit's ("qt_" +
// code), looked up in the current directory, which start-up makes the
// executable's. English is both a choice and the fallback. Installing a
// translator sends every widget a language-change event, and each window,
// dialog and page answers with its retranslate(). A choice made with
// choose() is stored in the settings and restore() takes it back at start.
// A process-wide singleton made on first use, never destroyed; GUI thread.

#include <QString>

#include <memory>

class QTranslator;

class CLanguage
{
public:
    static CLanguage* instance();
    ~CLanguage();

    CLanguage(const CLanguage&) = delete;
    CLanguage& operator=(const CLanguage&) = delete;

    // Switches to the language of `code` ("fr", "ja", ...); the empty code
    // means the system locale's.
    void translatorLan(QString code);
    // Switches to `code` and remembers it for the next start.
    void choose(const QString& code);
    // Switches to the remembered language, or the system's when none is.
    void restore();
    // The two-letter code of the program's texts now installed ("en" when
    // English stands in for a language that has no file).
    QString currentCode() const;

    // What is installed now, for the curious (a menu, a test).
    bool hasAppTranslator() const { return m_appTranslator != nullptr; }
    bool hasQtTranslator() const { return m_qtTranslator != nullptr; }
    QString appTranslatorFile() const;
    QString qtTranslatorFile() const;

private:
    CLanguage();

    std::unique_ptr<QTranslator> m_appTranslator;
    std::unique_ptr<QTranslator> m_qtTranslator;
};
