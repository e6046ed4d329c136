#pragma once
// Answers the modal dialogs a test sets off: each answer waits for the next
// modal widget to come to the front (polling the event loop the dialog runs),
// hands it to the test's function (which clicks, types, reads, closes), and
// is then spent. Answers are used in the order they were queued. Lives on the
// GUI thread of the test.

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>

class QWidget;

namespace tw {

class ModalAnswer : public QObject
{
    Q_OBJECT

public:
    using Answer = std::function<void(QWidget* modal)>;

    explicit ModalAnswer(QObject* parent = nullptr);
    ~ModalAnswer() override;

    // Queues an answer for the next modal widget that is not the one
    // answered last.
    void then(Answer answer);
    // Queued answers not used yet.
    int pending() const { return int(m_answers.size()); }
    // The class names of the modal widgets answered, in order.
    QStringList seen;

    // Ready-made answers.
    static Answer accept();
    static Answer reject();
    // Clicks the child button of that object name.
    static Answer click(const char* buttonName);
    // Clicks the message box button of that role (QMessageBox::Yes, ...).
    static Answer press(int standardButton);

private:
    void poll();

    QList<Answer> m_answers;
    QPointer<QWidget> m_last;
    QTimer m_timer;
};

} // namespace tw
