#pragma once
// CRingtoneNotice: the line under the editor that says what "Start to Create"
// made and where ("Bell.m4r added to Ringtones"), with "Show in folder" and
// "Play"; it goes away by itself after a while, and is no modal box. When
// the library did not take the ringtone it says so and still offers the
// folder where the file is. Both actions go through the desktop's URL
// handler. A child of the main window's editor page; GUI thread.

#include <QFrame>
#include <QString>

class QLabel;
class QTimer;
class QPushButton;

class CRingtoneNotice : public QFrame
{
    Q_OBJECT

public:
    // How long a notice stays, in milliseconds.
    static constexpr int kShowMs = 10000;

    explicit CRingtoneNotice(QWidget* parent = nullptr);

    // Shows the notice for the ringtone at `file`; `handedOver` tells
    // whether it is in the library's ringtones (then `file` is the copy there).
    void showMade(const QString& file, bool handedOver);
    void retranslate();

protected:
    void changeEvent(QEvent* event) override;

private:
    void showFolder();
    void play();

    QString m_file;
    bool m_handedOver = false;
    QLabel* m_text;
    QPushButton* m_folderBtn;
    QPushButton* m_playBtn;
    QTimer* m_hide; // Qt child
};
