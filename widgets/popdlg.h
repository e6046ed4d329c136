#pragma once
// CPopDlg: the common base of the program's pop-up dialogs (about, name,
// try again, problem report, update and options dialogs): a dialog titled
// with a single blank and drawn almost opaque, which lets the skin's dialog
// frame show. GUI thread.

#include <QDialog>

class CPopDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CPopDlg(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
};
