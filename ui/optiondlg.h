#pragma once
// COptionDlg: the options dialog — the update schedule and the proxy, one tab
// each. Every opening shows the saved settings; OK asks every page to save
// itself, in tab order; Cancel closes and forgets what was typed.
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
    void showEvent(QShowEvent* event) override;
    void done(int result) override;

private:
    std::unique_ptr<Ui::COptionDlgClass> ui;
};
