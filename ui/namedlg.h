#pragma once
// CNameDlg: asks for the ringtone's name before "Start to Create" writes it.
// Built from its Designer form, whose texts are set once at construction (a
// language change leaves them as they are). Made on the stack for one use
// by the convert flow. GUI thread.

#include "widgets/popdlg.h"

#include <QString>

#include <memory>

namespace Ui {
class CNameDlgClass;
}

class CNameDlg : public CPopDlg
{
    Q_OBJECT

public:
    explicit CNameDlg(QWidget* parent = nullptr);
    ~CNameDlg() override;

    void setName(const QString& name);
    // Selects the whole name, so that typing replaces it.
    void selectName();
    // The text as typed: blanks kept, nothing checked.
    QString getName() const;
    void retranslate();

protected:
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui::CNameDlgClass> ui;
};
