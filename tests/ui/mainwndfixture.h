#pragma once
// What the main window's tests share: the page in front, real clicks on tree
// and list rows, the answer that names a ringtone. Header-only.

#include "modalanswer.h"
#include "ui/mainwnd.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedLayout>
#include <QTest>
#include <QWidget>

namespace mw {

// The row of `view` whose display text is `text` (searched through the
// whole tree), or an invalid index.
inline QModelIndex findRow(const QAbstractItemView* view, const QString& text,
                           const QModelIndex& parent = QModelIndex())
{
    const QAbstractItemModel* model = view->model();
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (index.data().toString() == text)
            return index;
        const QModelIndex inside = findRow(view, text, index);
        if (inside.isValid())
            return inside;
    }
    return QModelIndex();
}

// A real mouse click in the middle of the row, as a user makes it.
inline bool clickRow(QAbstractItemView* view, const QString& text)
{
    const QModelIndex index = findRow(view, text);
    if (!index.isValid())
        return false;
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      view->visualRect(index).center());
    return true;
}

// The texts of a view's top-level rows, in the order shown.
inline QStringList rows(const QAbstractItemView* view)
{
    QStringList texts;
    for (int row = 0; row < view->model()->rowCount(); ++row)
        texts << view->model()->index(row, 0).data().toString();
    return texts;
}

// Which page of the right-hand stack is in front: 0 welcome, 1 editor,
// 2 progress, -1 none of them.
inline int mainPage(const CMainWnd& wnd)
{
    const char* names[] = {"helloWidget", "mainFrame", "progressWidget"};
    for (int page = 0; page < 3; ++page)
        if (wnd.findChild<QWidget*>(names[page])->isVisible())
            return page;
    return -1;
}

// An answer for the name dialog: types the name and presses OK.
inline tw::ModalAnswer::Answer typeName(const QString& name)
{
    return [name](QWidget* modal) {
        auto* edit = modal->findChild<QLineEdit*>("lineEdit");
        edit->selectAll();
        QTest::keyClicks(edit, name);
        modal->findChild<QPushButton*>("okBtn")->click();
    };
}

} // namespace mw
