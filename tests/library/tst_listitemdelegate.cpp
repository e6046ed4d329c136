// The ready item delegate: a fixed size hint whatever the item or style.

#include "library/listitemdelegate.h"
#include "testenv.h"

#include <QStandardItemModel>
#include <QStyleOptionViewItem>
#include <QTest>

class TestListItemDelegate : public QObject
{
    Q_OBJECT

private slots:
    void shouldHintThirtyByTwentyForEveryItem_data();
    void shouldHintThirtyByTwentyForEveryItem();
};

void TestListItemDelegate::shouldHintThirtyByTwentyForEveryItem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("fontSize");
    QTest::newRow("short") << "a" << 9;
    QTest::newRow("long text, large font") << QString(200, 'W') << 40;
    QTest::newRow("empty") << "" << 12;
}

void TestListItemDelegate::shouldHintThirtyByTwentyForEveryItem()
{
    QFETCH(QString, text);
    QFETCH(int, fontSize);
    QStandardItemModel model;
    model.appendRow(new QStandardItem(text));
    CListItemDelegate delegate;
    QStyleOptionViewItem option;
    option.font.setPointSize(fontSize);
    QCOMPARE(delegate.sizeHint(option, model.index(0, 0)), QSize(30, 20));
    QCOMPARE(delegate.sizeHint(option, QModelIndex()), QSize(30, 20));
}

TW_TEST_MAIN(TestListItemDelegate)
#include "tst_listitemdelegate.moc"
