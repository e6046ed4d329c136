#include "crash/crashreportdlg.h"

#include "core/branding.h"
#include "crash/crashhandler.h"
#include "widgets/linktext.h"

#include <bugreport.h>
#include <vexa.h>

#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

CCrashReportDlg::CCrashReportDlg(QWidget* parent, bool bManual)
    : CPopDlg(parent), m_label(new QLabel(this)), m_emailBtn(new QPushButton(this)),
      m_manual(bManual)
{
    setObjectName("crashreportDlg");
    m_label->setObjectName("crashLabel");
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::RichText);
    m_label->setOpenExternalLinks(true);
    m_emailBtn->setObjectName("emailBtn");
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_label, 4);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_emailBtn, 2);
    column->addLayout(buttons);
    column->setStretch(0, 1);
    column->setStretch(1, 0);
    connect(m_emailBtn, &QPushButton::clicked, this, &CCrashReportDlg::report);
    retranslate();
}

void CCrashReportDlg::retranslate()
{
    setWindowTitle(tr("Problem Report for Tonewright"));
    const QString first = m_manual ? tr("If you found any problem with Tonewright.")
                                   : tr("Tonewright quitted unexpectedly last time.");
    const QString paragraph =
        QStringLiteral("<p style=\"margin-top:12px; margin-bottom:12px; margin-left:0px; "
                       "margin-right:0px;\">%1</p>");
    const QString empty = paragraph.arg(QString());
    m_label->setText(
        QStringLiteral("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0//EN\" "
                       "\"http://www.w3.org/TR/REC-html40/strict.dtd\"><html><head><meta "
                       "name=\"qrichtext\" content=\"1\" /></head><body>") +
        paragraph.arg(first) + empty +
        paragraph.arg(tr("Please click &quot;Send report&quot; to Email the report to us. ")) +
        paragraph.arg(tr("Your report will help Vandrel improve this software. Your personal "
                         "information will not be included in this report.")) +
        empty +
        paragraph.arg(tr("For more product support, visit ") +
                      linkText(branding::supportPage(), branding::supportPage()) + ".") +
        QStringLiteral("</body></html>"));
    m_emailBtn->setText(tr("Send Report"));
}

void CCrashReportDlg::report()
{
    const QString pack =
        QString::fromLocal8Bit(KeloBugReport("com.vandrel.tonewright", "tonewright", 0, 0));
    qDebug().noquote() << "pack path:" << pack;

    // The newest crash log of the first folder that holds any.
    const QString logs = crashLogsDirectory();
    const QStringList folders =
        QDir(logs).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString& folder : folders) {
        qDebug().noquote() << "log sub dir:" << folder;
        const QStringList crashes =
            QDir(logs + "/" + folder)
                .entryList(QStringList() << "Orvo*.crash", QDir::Files, QDir::Time);
        if (crashes.isEmpty())
            continue;
        const QString source = logs + "/" + folder + "/" + crashes.first();
        // Two further arguments for a text without markers: kept as it was,
        // each makes the toolkit warn of a missing argument.
        const QString destination =
            QString("%1/Orvo.crash").arg(pack).arg(folder).arg(crashes.first());
        if (QFile::exists(destination))
            QFile::remove(destination);
        QFile::copy(source, destination);
        qDebug().noquote() << source << destination;
        break;
    }

    const QString body = tr("[Please describe your problem here.]");
    const QString subject = tr("Problem Report for Tonewright");
    const int sent = sendBugInf(branding::reportAddress().toLocal8Bit().constData(),
                                subject.toLocal8Bit().constData(), body.toLocal8Bit().constData(),
                                pack.toLocal8Bit().constData());
    if (sent < 0) {
        // The pack cannot go with a mail link; the text at least reaches us.
        const QString mail =
            QString("mailto:%1?subject=%2&body=%3").arg(branding::reportAddress(), subject, body);
        QDesktopServices::openUrl(QUrl(mail));
    }
    accept();
}

void CCrashReportDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    CPopDlg::changeEvent(event);
}
