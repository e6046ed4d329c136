#pragma once
// COptionDlg: the options dialog — the update schedule and the proxy, one tab
// each. OK asks every page to save itself, in tab order; Cancel closes.
// Created once by the main window and run modally. GUI thread.

#include "widgets/popdlg.h"

#include <memory>

namespace Ui {
class COptionDlgClass;
}

class COptionDlg : public CPopDlg
{
    Q_OBJECT

public:
    explicit COptionDlg(QWidget* parent = nullptr);
    ~COptionDlg() override;

    void retranslate();

public slots:
    void onOk();

protected:
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui::COptionDlgClass> ui;
};
