#include "ui/accessiblefactory.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace {

QAccessibleInterface* accessibleFor(const QString& className, QObject* object)
{
    if (!object || !object->isWidgetType())
        return nullptr;
    auto* widget = static_cast<QWidget*>(object);
    // The toolkit's cache owns the interfaces made here.
    if (className == QLatin1String("CMainWnd"))
        return new QAccessibleWidget(widget, QAccessible::Window);
    if (className == QLatin1String("CWaveWnd"))
        return new QAccessibleWidget(widget, QAccessible::Canvas);
    return nullptr;
}

} // namespace

void installAccessibleFactory()
{
    static bool installed = false;
    if (installed)
        return;
    installed = true;
    QAccessible::installFactory(accessibleFor);
}
