#include "logbook/window/logbookstatus.h"

#include "data/figuretext.h"
#include "logbook/logbookreader.h"
#include "widgets/displayscale.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>

namespace {

constexpr int progressWidth = 200; // px
constexpr int edgeGap = 8; // px; a maximised window has no grip at its corner

} // namespace

LogbookStatus::LogbookStatus(QStatusBar *bar, LogbookReader *reader)
    : QObject(bar)
    , m_count(new QLabel(bar))
    , m_progress(new QProgressBar(bar))
    , m_cancel(new QPushButton(tr("Cancel"), bar))
{
    m_count->setObjectName(QStringLiteral("logbookCount"));
    m_count->setContentsMargins(0, 0, scaled(edgeGap), 0);
    m_progress->setMaximumWidth(scaled(progressWidth));
    m_progress->setFormat(tr("%v of %m files"));
    m_progress->setToolTip(tr("Files that are read for the logbook"));
    m_cancel->setObjectName(QStringLiteral("cancelReading"));
    m_cancel->setToolTip(tr("Gives up the files that wait. Edit > Read again goes on."));
    bar->addPermanentWidget(m_count);
    bar->addPermanentWidget(m_progress);
    bar->addPermanentWidget(m_cancel);
    connect(reader, SIGNAL(progressed(int,int)), this, SLOT(onProgress(int,int)));
    connect(m_cancel, SIGNAL(clicked()), reader, SLOT(cancel()));
    onProgress(reader->filesDone(), reader->filesToDo());
}

void LogbookStatus::tell(int shown, int total, int chosen)
{
    const auto number = [](int count) { return FigureText::fixed(count, 0); };
    QString text = shown == total ? tr("%n recording(s)", nullptr, total)
                                  : tr("%1 of %n recording(s)", nullptr, total).arg(number(shown));
    if (chosen > 1)
        text += QStringLiteral(", ") + tr("%n chosen", nullptr, chosen);
    m_count->setText(text);
}

void LogbookStatus::onProgress(int done, int toDo)
{
    const bool isReading = done < toDo;
    m_progress->setVisible(isReading);
    m_cancel->setVisible(isReading);
    m_progress->setRange(0, toDo);
    m_progress->setValue(done);
}
