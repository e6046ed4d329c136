#pragma once
// The two pages of the options dialog, each from its Designer form and each
// an IOptionPage. The update page acts on the configuration at once (a
// chosen interval is in memory until the dialog is cancelled, which reads
// the saved settings back); the proxy page writes only when OK saves it.
// Built once with the dialog; every opening loads the saved settings into
// them again. GUI thread.

#include "ui/ioptionpage.h"
#include "ui_proxyoptionwidget.h"
#include "ui_updateoptionwidget.h"

#include <QWidget>

// The update schedule: automatic checks and the days between them.
class CUpdateOptionWidget : public QWidget, public Ui::CUpdateOptionWidgetClass, public IOptionPage
{
    Q_OBJECT

public:
    explicit CUpdateOptionWidget(QWidget* parent = nullptr);

    void load() override;
    void save() override;
    void retranslate();

public slots:
    void autoUpdateChanged(int state);
    void enableNum();
    void setDayUpdate();
    void setWeekUpdate();
    void setMonthUpdate();
    void setNumUpdate(int days);

protected:
    void changeEvent(QEvent* event) override;
};

// The proxy the update check goes through.
class CProxyOptionWidget : public QWidget, public Ui::CProxyWidgetClass, public IOptionPage
{
    Q_OBJECT

public:
    explicit CProxyOptionWidget(QWidget* parent = nullptr);

    void load() override;
    void save() override;
    void retranslate();

public slots:
    void useProxyChanged(int state);

protected:
    void changeEvent(QEvent* event) override;

private:
    // The combo's entries, in the configuration's proxy-type order.
    void fillProxyTypes();
};
