// Undo and redo over the editor's settings: a step per commit that changes
// something, steps undone forgotten by a new commit, the oldest dropped
// past the depth, everything forgotten by a reset.

#include "editor/edithistory.h"
#include "testenv.h"

#include <QObject>
#include <QTest>

namespace {

EditState at(long long begin, long long end = 40000)
{
    EditState s;
    s.beginMs = begin;
    s.endMs = end;
    return s;
}

} // namespace

class TestEditHistory : public QObject
{
    Q_OBJECT

private slots:
    void shouldStartWithNothingToUndo()
    {
        CEditHistory h;
        h.reset(at(0));
        QVERIFY(!h.canUndo());
        QVERIFY(!h.canRedo());
        EditState out = at(99);
        QVERIFY(!h.undo(&out));
        QVERIFY(!h.redo(&out));
        QCOMPARE(out.beginMs, 99LL); // untouched
    }

    void shouldTakeAStepOnlyForAChange()
    {
        CEditHistory h;
        h.reset(at(0));
        QVERIFY(!h.commit(at(0)));
        QVERIFY(!h.canUndo());
        QVERIFY(h.commit(at(1000)));
        QCOMPARE(h.undoSteps(), 1);
        // Every field counts.
        EditState s = at(1000);
        s.fadeInOn = true;
        QVERIFY(h.commit(s));
        s.fadeInSeconds = 3;
        QVERIFY(h.commit(s));
        s.fadeOutOn = true;
        QVERIFY(h.commit(s));
        s.fadeOutSeconds = 2;
        QVERIFY(h.commit(s));
        s.volume = 150;
        QVERIFY(h.commit(s));
        s.normalize = 1;
        QVERIFY(h.commit(s));
        s.kind = 2;
        QVERIFY(h.commit(s));
        s.endMs = 30000;
        QVERIFY(h.commit(s));
        QCOMPARE(h.undoSteps(), 9);
    }

    void shouldUndoAndRedoInOrder()
    {
        CEditHistory h;
        h.reset(at(0));
        h.commit(at(1000));
        h.commit(at(2000));
        h.commit(at(3000));
        EditState out;
        QVERIFY(h.undo(&out));
        QCOMPARE(out.beginMs, 2000LL);
        QVERIFY(h.undo(&out));
        QCOMPARE(out.beginMs, 1000LL);
        QVERIFY(h.redo(&out));
        QCOMPARE(out.beginMs, 2000LL);
        QCOMPARE(h.current().beginMs, 2000LL);
        QCOMPARE(h.undoSteps(), 2);
        QCOMPARE(h.redoSteps(), 1);
        // A new change forgets what was undone.
        QVERIFY(h.commit(at(5000)));
        QVERIFY(!h.canRedo());
        QVERIFY(h.undo(&out));
        QCOMPARE(out.beginMs, 2000LL);
    }

    void shouldKeepTheNewestStepsUpToItsDepth()
    {
        QVERIFY(CEditHistory::kDepth >= 50);
        CEditHistory h;
        h.reset(at(0));
        const int steps = CEditHistory::kDepth + 30;
        for (int i = 1; i <= steps; ++i)
            QVERIFY(h.commit(at(i * 100)));
        QCOMPARE(h.undoSteps(), CEditHistory::kDepth);
        EditState out;
        int undone = 0;
        while (h.undo(&out))
            ++undone;
        QCOMPARE(undone, CEditHistory::kDepth);
        // The oldest 30 went: the last undo lands 30 steps in.
        QCOMPARE(out.beginMs, 3000LL);
        QCOMPARE(h.redoSteps(), CEditHistory::kDepth);
    }

    void shouldForgetEverythingOnReset()
    {
        CEditHistory h;
        h.reset(at(0));
        h.commit(at(1000));
        EditState out;
        h.undo(&out);
        h.reset(at(7000));
        QVERIFY(!h.canUndo());
        QVERIFY(!h.canRedo());
        QCOMPARE(h.current().beginMs, 7000LL);
    }
};

TW_TEST_MAIN(TestEditHistory)
#include "tst_edithistory.moc"
