#pragma once
// The search box above the song list: a line edit that shows the prompt
// "Filter" while empty, with a field button that drops down the list of
// fields ("All", "Title", "Artist", "Album"), a clear button, and a 500 ms
// single-shot timer that each keystroke restarts, so that one search(text,
// field) is emitted per pause in typing. Owns its buttons, the field list
// (a separate tooltip-type window) and its model through Qt parents. GUI
// thread only.

#include "library/librarytypes.h"

#include <QLineEdit>
#include <QModelIndex>
#include <QStringList>

class QListView;
class QStandardItemModel;
class QTimer;
class QToolButton;

class CFilterEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit CFilterEdit(QWidget* parent);

    // Shows the clear button exactly when there is text other than the prompt.
    void showClearBtn();
    void retranslate();

signals:
    void search(QString text, FilterType type);

public slots:
    void On_textChanged();
    void on_clearbuttonClicked();
    void on_SearchbuttonClicked();
    void on_SearchViewClicked(QModelIndex index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QToolButton* m_filterBtn;
    QToolButton* m_filterTypeBtn;
    QToolButton* m_clearBtn;
    QListView* m_listView;
    QStandardItemModel* m_listModel;
    QStringList m_captions;
    QStringList m_history; // reserved; nothing fills it
    FilterType m_filterType;
    QTimer* m_timer;
};
