#pragma once
// CNewestDlg: says that the running version is the newest, after a check
// the user asked for. Built from its Designer form; created once by the main
// window and run modally. GUI thread.

#include "widgets/popdlg.h"

#include <QString>

#include <memory>

namespace Ui {
class CNewestDlgClass;
}

class CNewestDlg : public CPopDlg
{
    Q_OBJECT

public:
    explicit CNewestDlg(QWidget* parent = nullptr);
    ~CNewestDlg() override;

    void retranslate();
    // Replaces the message (nothing in the program calls it).
    void setNote(const QString& note);

protected:
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui::CNewestDlgClass> ui;
};
