#pragma once
// CTryAgainDlg: says why a file could not be used and, where trying again
// can help (a conversion that failed, a file that could not be read), offers
// to; accepted means "try again". For a file that is no media, has no sound
// or is too short it only says so, with one button. Made on the stack for one
// use after a failed import or export. GUI thread.

#include "editor/waveio.h"
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
    // What went wrong; SourceProblem::None (the default) is a conversion
    // that failed.
    void setProblem(SourceProblem problem);
    // Whether trying again can help with this problem.
    static bool canTryAgain(SourceProblem problem);
    void retranslate();

protected:
    void changeEvent(QEvent* event) override;

private:
    QString m_fileName;
    SourceProblem m_problem = SourceProblem::None;
    QLabel* m_message;
    QPushButton* m_okBtn;
    QPushButton* m_cancelBtn;
};
