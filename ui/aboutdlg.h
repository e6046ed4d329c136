#pragma once
// CAboutDlg: the About box — the maker's ownership notice, links to the
// support and home pages (opened in the browser) and the version. Built from
// its Designer form; its texts follow the language. Created once by the main
// window and run modally from Help, About. GUI thread.

#include "widgets/popdlg.h"

#include <memory>

namespace Ui {
class CAboutClass;
}

class CAboutDlg : public CPopDlg
{
    Q_OBJECT

public:
    explicit CAboutDlg(QWidget* parent = nullptr);
    ~CAboutDlg() override;

    void retranslate();

protected:
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui::CAboutClass> ui;
};
