#include "modalanswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QWidget>

namespace tw {

ModalAnswer::ModalAnswer(QObject* parent) : QObject(parent)
{
    m_timer.setInterval(20);
    connect(&m_timer, &QTimer::timeout, this, &ModalAnswer::poll);
}

ModalAnswer::~ModalAnswer() = default;

void ModalAnswer::then(Answer answer)
{
    m_answers << std::move(answer);
    m_timer.start();
}

void ModalAnswer::poll()
{
    if (m_answers.isEmpty()) {
        m_timer.stop();
        return;
    }
    if (m_last && !m_last->isVisible())
        m_last = nullptr; // gone: a dialog reused later is a new one
    QWidget* modal = QApplication::activeModalWidget();
    // A dialog answered a moment ago may still be on its way out.
    if (!modal || !modal->isVisible() || modal == m_last)
        return;
    m_last = modal;
    seen << QString::fromLatin1(modal->metaObject()->className());
    const Answer answer = m_answers.takeFirst();
    answer(modal);
}

ModalAnswer::Answer ModalAnswer::accept()
{
    return [](QWidget* modal) {
        if (auto* dlg = qobject_cast<QDialog*>(modal))
            dlg->accept();
    };
}

ModalAnswer::Answer ModalAnswer::reject()
{
    return [](QWidget* modal) {
        if (auto* dlg = qobject_cast<QDialog*>(modal))
            dlg->reject();
    };
}

ModalAnswer::Answer ModalAnswer::click(const char* buttonName)
{
    return [buttonName](QWidget* modal) {
        if (auto* button = modal->findChild<QAbstractButton*>(buttonName))
            button->click();
    };
}

ModalAnswer::Answer ModalAnswer::press(int standardButton)
{
    return [standardButton](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal))
            if (QAbstractButton* b = box->button(QMessageBox::StandardButton(standardButton)))
                b->click();
    };
}

} // namespace tw
