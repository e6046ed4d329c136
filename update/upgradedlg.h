#pragma once
// CUpgradeDlg: tells that a newer version exists, shows what is new in it,
// and opens its download address ("Download Now"). Built from its Designer
// form; created once by the main window and run modally. GUI thread.

#include "widgets/popdlg.h"

#include <QString>

#include <memory>

namespace Ui {
class CUpgradeClass;
}

class CUpgradeDlg : public CPopDlg
{
    Q_OBJECT

public:
    explicit CUpgradeDlg(QWidget* parent = nullptr);
    ~CUpgradeDlg() override;

    void retranslate();
    QString downloadUrl() const { return m_downloadUrl; }

public slots:
    // What is new, shown as rich text.
    void setNewInfo(QString info);
    void setDownLoadUrl(const QString& url);
    // Opens the download address in the browser and closes the dialog.
    void download();

protected:
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui::CUpgradeClass> ui;
    QString m_downloadUrl;
};
