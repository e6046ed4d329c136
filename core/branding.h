#pragma once
// The maker's addresses, in one place. The domain comes from the build
// (CMake's TONEWRIGHT_DOMAIN, "vandrel.example" by default); every address
// below is made from it. The update service may be pointed elsewhere at run
// time with TONEWRIGHT_UPDATE_URL (tests and deployments do).

#include <QByteArray>
#include <QString>
#include <QtGlobal>

namespace branding {

inline QString domain()
{
    return QStringLiteral(TONEWRIGHT_DOMAIN);
}

// The program's version as the update service compares it.
inline QString version()
{
    return QStringLiteral(TONEWRIGHT_VERSION);
}

inline QString homePage()
{
    return QStringLiteral("https://www.") + domain() + QStringLiteral("/");
}

inline QString supportPage()
{
    return homePage() + QStringLiteral("support/");
}

// The product's page in the maker's store.
inline QString storePage()
{
    return homePage() + QStringLiteral("store/tonewright/");
}

// The maker's pages on the two social networks the program links to.
inline QString facebookPage()
{
    return QStringLiteral("https://www.facebook.com/vandrelsoftware");
}

inline QString twitterPage()
{
    return QStringLiteral("https://twitter.com/vandrelsoftware");
}

// Where a "Tweet Your Ringtone" status is composed.
inline QString twitterHome()
{
    return QStringLiteral("https://twitter.com/home");
}

// The store pages of the maker's two sibling products.
inline QString clipwellPage()
{
    return homePage() + QStringLiteral("store/clipwell/");
}

inline QString discwellPage()
{
    return homePage() + QStringLiteral("store/discwell/");
}

// The product identifier the update service knows.
inline QString updateProduct()
{
    return QStringLiteral("Vandrel Tonewright Mac");
}

// Where problem reports are mailed.
inline QString reportAddress()
{
    return QStringLiteral("support@") + domain();
}

// The update script; TONEWRIGHT_UPDATE_URL replaces it when set.
inline QString updateScript()
{
    const QByteArray configured = qgetenv("TONEWRIGHT_UPDATE_URL");
    if (!configured.isEmpty())
        return QString::fromUtf8(configured);
    return homePage() + QStringLiteral("update-product-info/update.php");
}

} // namespace branding
