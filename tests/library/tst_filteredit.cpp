// The search box: its parts, the 500 ms pause before a search, the clear
// button, the field list, the prompt, and a language change.

#include "library/filteredit.h"
#include "testenv.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QGridLayout>
#include <QListView>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QTimer>
#include <QToolButton>

class TestFilterEdit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void shouldBuildItsPartsWithTheirNames();
    void shouldOfferTheFourFieldsInOrder();
    void shouldShowThePromptAndClearItOnAClick();
    void shouldEmitOneSearchHalfASecondAfterTheLastKey();
    void shouldRestartTheDelayWithEveryKey();
    void shouldClearAtOnceAndHideTheClearButton();
    void shouldShowTheClearButtonOnlyForRealText_data();
    void shouldShowTheClearButtonOnlyForRealText();
    void shouldOpenAndCloseTheFieldList();
    void shouldSearchTheChosenFieldWithAnEmptyTextUnderThePrompt();
    void shouldCarryTheChosenFieldIntoTypedSearches();
    void shouldPutThePromptBackWhenFocusLeavesAnEmptyBox();
    void shouldDropTypedTextOnALanguageChange();

private:
    QToolButton* button(const char* name) const { return m_edit->findChild<QToolButton*>(name); }
    QListView* fieldList() const { return m_edit->findChild<QListView*>("filterListView"); }
    QTimer* typingTimer() const { return m_edit->findChild<QTimer*>(); }
    void clickField(int row);

    QWidget* m_window = nullptr;
    CFilterEdit* m_edit = nullptr;
};

void TestFilterEdit::init()
{
    m_window = new QWidget;
    m_window->resize(300, 60);
    m_edit = new CFilterEdit(m_window);
    m_edit->setGeometry(10, 10, 220, 24);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
}

void TestFilterEdit::cleanup()
{
    delete m_window;
    m_window = nullptr;
    m_edit = nullptr;
}

void TestFilterEdit::clickField(int row)
{
    QListView* list = fieldList();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(row, 0)).center());
}

void TestFilterEdit::shouldBuildItsPartsWithTheirNames()
{
    QToolButton* filter = button("FilterBtn");
    QToolButton* type = button("filerTypeBtn");
    QToolButton* clear = button("clearBtn");
    QVERIFY(filter && type && clear && fieldList());
    QVERIFY(clear->isHidden());
    QCOMPARE(type->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(clear->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(type->toolTip(), QString("Filter"));
    QCOMPARE(clear->toolTip(), QString("Clear"));
    QCOMPARE(m_edit->contentsMargins(), QMargins(0, 0, 0, 0));

    auto* grid = qobject_cast<QGridLayout*>(m_edit->layout());
    QVERIFY(grid);
    QCOMPARE(grid->spacing(), 0);
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 0, 0));
    int row = -1, column = -1, rows = 0, columns = 0;
    grid->getItemPosition(grid->indexOf(filter), &row, &column, &rows, &columns);
    QCOMPARE(column, 1);
    grid->getItemPosition(grid->indexOf(type), &row, &column, &rows, &columns);
    QCOMPARE(column, 2);
    grid->getItemPosition(grid->indexOf(clear), &row, &column, &rows, &columns);
    QCOMPARE(QPoint(column, row), QPoint(3, 0));
    QCOMPARE(grid->columnStretch(0), 1);
    QCOMPARE(grid->columnStretch(1), 1);
    QCOMPARE(grid->columnStretch(2), 8);
    QCOMPARE(grid->columnStretch(3), 5);

    QListView* list = fieldList();
    QCOMPARE(list->windowType(), Qt::ToolTip);
    QCOMPARE(list->selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(list->focusPolicy(), Qt::NoFocus);
    QVERIFY(list->isHidden());

    auto* timer = m_edit->findChild<QTimer*>();
    QVERIFY(timer);
    QVERIFY(timer->isSingleShot());
    QCOMPARE(timer->interval(), 500);
}

void TestFilterEdit::shouldOfferTheFourFieldsInOrder()
{
    QAbstractItemModel* model = fieldList()->model();
    QVERIFY(qobject_cast<QStandardItemModel*>(model));
    QCOMPARE(model->rowCount(), 4);
    const QStringList captions{"All", "Title", "Artist", "Album"};
    for (int row = 0; row < 4; ++row) {
        QCOMPARE(model->index(row, 0).data().toString(), captions[row]);
        QCOMPARE(model->index(row, 0).data(Qt::CheckStateRole).toInt(), 0);
    }
}

void TestFilterEdit::shouldShowThePromptAndClearItOnAClick()
{
    QCOMPARE(m_edit->text(), QString("Filter"));
    QTest::mouseClick(m_edit, Qt::LeftButton, {}, QPoint(20, 12));
    QCOMPARE(m_edit->text(), QString());
}

void TestFilterEdit::shouldEmitOneSearchHalfASecondAfterTheLastKey()
{
    QSignalSpy spy(m_edit, &CFilterEdit::search);
    QTest::mouseClick(m_edit, Qt::LeftButton, {}, QPoint(20, 12));
    QTest::keyClicks(m_edit, "abc");
    QElapsedTimer sinceLastKey;
    sinceLastKey.start();
    // Keys are delivered without running the event loop: the delay has
    // started and nothing can have fired yet.
    QTimer* delay = typingTimer();
    QVERIFY(delay->isActive());
    QVERIFY(delay->isSingleShot());
    QCOMPARE(delay->interval(), 500);
    QCOMPARE(spy.count(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, 5000);
    // A lower bound only: a busy machine fires later, never earlier.
    QVERIFY2(sinceLastKey.elapsed() >= 450, qPrintable(QString::number(sinceLastKey.elapsed())));
    QCOMPARE(spy[0][0].toString(), QString("abc"));
    QCOMPARE(spy[0][1].value<FilterType>(), FT_ALL);
    // One shot: nothing is left to fire.
    QVERIFY(!delay->isActive());
    QVERIFY(button("clearBtn")->isVisible());
}

void TestFilterEdit::shouldRestartTheDelayWithEveryKey()
{
    QSignalSpy spy(m_edit, &CFilterEdit::search);
    QTest::mouseClick(m_edit, Qt::LeftButton, {}, QPoint(20, 12));
    QTest::keyClick(m_edit, Qt::Key_A);
    // A sleep that runs no events: the first key's delay cannot fire in it.
    QTest::qSleep(300);
    QTest::keyClick(m_edit, Qt::Key_B);
    QElapsedTimer sinceSecondKey;
    sinceSecondKey.start();
    QCOMPARE(spy.count(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, 5000);
    // Unrestarted, the delay would have ended 200 ms after the second key.
    QVERIFY2(sinceSecondKey.elapsed() >= 450,
             qPrintable(QString::number(sinceSecondKey.elapsed())));
    QCOMPARE(spy[0][0].toString(), QString("ab"));
}

void TestFilterEdit::shouldClearAtOnceAndHideTheClearButton()
{
    QTest::mouseClick(m_edit, Qt::LeftButton, {}, QPoint(20, 12));
    QTest::keyClicks(m_edit, "beatles");
    QSignalSpy spy(m_edit, &CFilterEdit::search);
    QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, 5000);
    QToolButton* clear = button("clearBtn");
    QVERIFY(clear->isVisible());

    QTest::keyClick(m_edit, Qt::Key_S); // a search is pending again
    QVERIFY(typingTimer()->isActive());
    QTest::mouseClick(clear, Qt::LeftButton);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy[1][0].toString(), QString());
    QCOMPARE(spy[1][1].value<FilterType>(), FT_ALL);
    QCOMPARE(m_edit->text(), QString());
    QVERIFY(!clear->isVisible());
    // The pending search was called off: nothing follows.
    QVERIFY(!typingTimer()->isActive());
}

void TestFilterEdit::shouldShowTheClearButtonOnlyForRealText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("visible");
    QTest::newRow("text") << "x" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("the prompt") << "Filter" << false;
    QTest::newRow("the prompt in other letters") << "filter" << true;
}

void TestFilterEdit::shouldShowTheClearButtonOnlyForRealText()
{
    QFETCH(QString, text);
    QFETCH(bool, visible);
    m_edit->setText(text);
    m_edit->showClearBtn();
    QCOMPARE(button("clearBtn")->isVisible(), visible);
}

void TestFilterEdit::shouldOpenAndCloseTheFieldList()
{
    QListView* list = fieldList();
    QTest::mouseClick(button("filerTypeBtn"), Qt::LeftButton);
    QVERIFY(list->isVisible());
    QVERIFY(list->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(list->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(list->windowType(), Qt::ToolTip);
    QCOMPARE(list->pos(), m_edit->mapToGlobal(QPoint(m_edit->width() - 6, 16)));
    QTest::mouseClick(button("filerTypeBtn"), Qt::LeftButton);
    QVERIFY(!list->isVisible());

    // A press in the box hides it too.
    m_edit->on_SearchbuttonClicked();
    QVERIFY(list->isVisible());
    QTest::mousePress(m_edit, Qt::LeftButton, {}, QPoint(20, 12));
    QVERIFY(!list->isVisible());
}

void TestFilterEdit::shouldSearchTheChosenFieldWithAnEmptyTextUnderThePrompt()
{
    QSignalSpy spy(m_edit, &CFilterEdit::search);
    m_edit->on_SearchbuttonClicked();
    QVERIFY(fieldList()->isVisible());
    QCOMPARE(m_edit->text(), QString("Filter"));
    clickField(2); // "Artist"
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy[0][0].toString(), QString());
    QCOMPARE(spy[0][1].value<FilterType>(), FT_ARTIST);
    QVERIFY(!fieldList()->isVisible());
    QVERIFY(!button("clearBtn")->isVisible());
}

void TestFilterEdit::shouldCarryTheChosenFieldIntoTypedSearches()
{
    m_edit->on_SearchbuttonClicked();
    clickField(3); // "Album"
    QSignalSpy spy(m_edit, &CFilterEdit::search);
    QTest::mouseClick(m_edit, Qt::LeftButton, {}, QPoint(20, 12));
    QTest::keyClicks(m_edit, "road");
    QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, 2000);
    QCOMPARE(spy[0][0].toString(), QString("road"));
    QCOMPARE(spy[0][1].value<FilterType>(), FT_ALBUM);
    // Choosing a field with text in the box searches it at once.
    m_edit->on_SearchbuttonClicked();
    clickField(1); // "Title"
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy[1][0].toString(), QString("road"));
    QCOMPARE(spy[1][1].value<FilterType>(), FT_TITLE);
}

void TestFilterEdit::shouldPutThePromptBackWhenFocusLeavesAnEmptyBox()
{
    m_edit->setText(QString());
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(m_edit, &out);
    QCOMPARE(m_edit->text(), QString("Filter"));
    m_edit->setText("kept");
    QApplication::sendEvent(m_edit, &out);
    QCOMPARE(m_edit->text(), QString("kept"));
}

void TestFilterEdit::shouldDropTypedTextOnALanguageChange()
{
    m_edit->setText("typed");
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(m_edit, &change);
    QCOMPARE(m_edit->text(), QString("Filter"));
    QCOMPARE(fieldList()->model()->rowCount(), 4);
    QCOMPARE(button("clearBtn")->toolTip(), QString("Clear"));
}

TW_TEST_MAIN(TestFilterEdit)
#include "tst_filteredit.moc"
