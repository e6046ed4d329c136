#pragma once
// CTryAgainDlg: says that a file could not be converted and offers to try
// again; accepted means "try again". Made on the stack for one use after a
// failed import or export. GUI thread.

#include "widgets/popdlg.h"

#include <QString>

class QLabel;
class QPushButton;

class CTryAgainDlg : public CPopDlg
{
    Q_OBJECT

public:
    explicit CTryAgainDlg(QWidget* parent = nullptr);

    // Names the file (between quotation marks) in the message.
    void setFileName(const QString& name);
    void retranslate();

protected:
    void changeEvent(QEvent* event) override;

private:
    QString m_fileName;
    QLabel* m_message;
    QPushButton* m_okBtn;
    QPushButton* m_cancelBtn;
};
