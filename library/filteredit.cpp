#include "library/filteredit.h"

#include <QCursor>
#include <QEvent>
#include <QGridLayout>
#include <QListView>
#include <QStandardItem>
#include <QStandardItemModel>
#include <QTimer>
#include <QToolButton>

CFilterEdit::CFilterEdit(QWidget* parent)
    : QLineEdit(parent), m_filterBtn(new QToolButton(this)), m_filterTypeBtn(new QToolButton(this)),
      m_clearBtn(new QToolButton(this)), m_listView(new QListView(this)),
      m_listModel(new QStandardItemModel(this)), m_filterType(FT_ALL), m_timer(nullptr)
{
    setContentsMargins(0, 0, 0, 0);
    auto* layout = new QGridLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);

    m_filterBtn->setObjectName("FilterBtn");
    // The style sheet addresses this misspelt name.
    m_filterTypeBtn->setObjectName("filerTypeBtn");
    m_filterTypeBtn->setCursor(Qt::PointingHandCursor);
    m_clearBtn->setObjectName("clearBtn");
    m_clearBtn->setCursor(Qt::PointingHandCursor);
    m_clearBtn->hide();
    layout->addWidget(m_filterBtn, 0, 1, Qt::AlignLeft);
    layout->addWidget(m_filterTypeBtn, 0, 2, Qt::AlignLeft);
    layout->addWidget(m_clearBtn, 0, 3, Qt::AlignLeft);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(2, 8);
    layout->setColumnStretch(3, 5);

    m_listView->setObjectName("filterListView");
    m_listView->setWindowFlags(Qt::ToolTip);
    m_listView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_listView->setFocusPolicy(Qt::NoFocus);
    m_listView->setModel(m_listModel);
    m_listView->hide();

    connect(m_clearBtn, &QToolButton::clicked, this, &CFilterEdit::on_clearbuttonClicked);
    connect(m_filterTypeBtn, &QToolButton::clicked, this, &CFilterEdit::on_SearchbuttonClicked);
    connect(m_listView, &QListView::clicked, this, &CFilterEdit::on_SearchViewClicked);

    retranslate();

    m_timer = new QTimer(this);
    m_timer->setSingleShot(true);
    m_timer->setInterval(500);
    connect(m_timer, &QTimer::timeout, this, &CFilterEdit::On_textChanged);
    // Each keystroke restarts the delay.
    connect(this, &QLineEdit::textEdited, m_timer, qOverload<>(&QTimer::start));
}

void CFilterEdit::retranslate()
{
    m_captions.clear();
    m_captions << tr("All") << tr("Title") << tr("Artist") << tr("Album");
    m_listModel->clear();
    for (const QString& caption : std::as_const(m_captions)) {
        auto* item = new QStandardItem(caption);
        item->setData(0, Qt::CheckStateRole);
        m_listModel->appendRow(item);
    }
    m_clearBtn->setToolTip(tr("Clear"));
    m_filterTypeBtn->setToolTip(tr("Filter"));
    // What a screen reader says of the buttons inside the field.
    m_clearBtn->setAccessibleName(tr("Clear"));
    m_filterTypeBtn->setAccessibleName(tr("Search in"));
    m_filterBtn->setAccessibleName(tr("Search"));
    // A language change therefore drops what was typed.
    setText(tr("Filter"));
}

void CFilterEdit::showClearBtn()
{
    const QString current = text();
    m_clearBtn->setVisible(!current.isEmpty() && current != tr("Filter"));
}

void CFilterEdit::On_textChanged()
{
    m_timer->stop();
    if (text() == tr("Filter")) {
        // The box shows its prompt: there is nothing to look for.
        emit search(QString(), m_filterType);
        return;
    }
    emit search(text(), m_filterType);
    showClearBtn();
}

void CFilterEdit::on_clearbuttonClicked()
{
    setText(QString());
    On_textChanged();
}

void CFilterEdit::on_SearchbuttonClicked()
{
    if (m_listView->isVisible()) {
        m_listView->hide();
        return;
    }
    m_listView->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    m_listView->move(mapToGlobal(QPoint(width() - 6, 16)));
    m_listView->show();
}

void CFilterEdit::on_SearchViewClicked(QModelIndex index)
{
    m_filterType = static_cast<FilterType>(index.row());
    On_textChanged();
    m_listView->hide();
}

void CFilterEdit::mousePressEvent(QMouseEvent* event)
{
    if (text() == tr("Filter"))
        clear();
    m_listView->hide();
    QLineEdit::mousePressEvent(event);
}

void CFilterEdit::focusOutEvent(QFocusEvent* event)
{
    if (text().isEmpty())
        setText(tr("Filter"));
    // A click into the field list must still reach it.
    if (!m_listView->geometry().contains(QCursor::pos()))
        m_listView->hide();
    QLineEdit::focusOutEvent(event);
}

void CFilterEdit::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QLineEdit::changeEvent(event);
}
