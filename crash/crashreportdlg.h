#pragma once
// CCrashReportDlg: offers to send a problem report, after an abnormal end of
// the last run (manual false) or when the user asks for one (manual true).
// "Send Report" packs the engine's diagnostics with the newest crash log and
// mails them; when mailing fails, the desktop's mail client opens with a
// prepared message. Made on demand by the main window and run modally; GUI
// thread (packing and sending block it while they run).

#include "widgets/popdlg.h"

#include <QString>

class QLabel;
class QPushButton;

class CCrashReportDlg : public CPopDlg
{
    Q_OBJECT

public:
    CCrashReportDlg(QWidget* parent, bool bManual);

    void retranslate();
    bool isManual() const { return m_manual; }

public slots:
    // Packs, attaches the newest crash log, sends (or opens a mail), closes.
    void report();

protected:
    void changeEvent(QEvent* event) override;

private:
    QLabel* m_label;
    QPushButton* m_emailBtn;
    bool m_manual;
};
