#include "desk/statusfacts.h"

#include "widgets/plaintooltip.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QStatusBar>

#include <algorithm>

namespace {

// What the labels may take of the bar together, in per cent; longer lists of ports are elided, the tool tip
// has them all. The rest is for messages.
constexpr int labelShare = 65;
constexpr int narrowestLabel = 100; // pixels
constexpr int labelGap = 8; // pixels

struct KindText {
    const char *label;
    const char *tip;
};

constexpr const char *endTip = QT_TRANSLATE_NOOP("StatusFacts",
    "The process has ended and its message is gone. It is named here until you look at its window.");

const KindText texts[StatusFacts::KindCount] = {
    {QT_TRANSLATE_NOOP("StatusFacts", "Lost: %1"),
        QT_TRANSLATE_NOOP(
            "StatusFacts", "The device or its adapter went away. Listening goes on when it is back.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Can't open: %1"),
        QT_TRANSLATE_NOOP("StatusFacts", "These ports could not be opened.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Paused: %1"),
        QT_TRANSLATE_NOOP(
            "StatusFacts", "Recording is paused: what the device sends is lost. Press Recording to go on.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "No data: %1"),
        QT_TRANSLATE_NOOP("StatusFacts", "The device has sent no line for a while.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Window closed: %1"),
        QT_TRANSLATE_NOOP(
            "StatusFacts", "The graph window was closed. A window opens again with the next process.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Not on disk: %1"),
        QT_TRANSLATE_NOOP("StatusFacts",
            "The journal's disk takes no more. Lines wait in memory and are written as soon as it does.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Error: %1"), endTip},
    {QT_TRANSLATE_NOOP("StatusFacts", "Aborted: %1"), endTip},
    {QT_TRANSLATE_NOOP("StatusFacts", "Completed: %1"), endTip},
    {QT_TRANSLATE_NOOP("StatusFacts", "Listening: %1"),
        QT_TRANSLATE_NOOP("StatusFacts", "The ports are chosen in File > Preferences.")},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("StatusFacts", text);
}

} // namespace

StatusFacts::StatusFacts(QStatusBar *bar)
    : QObject(bar)
    , m_bar(bar)
{
    for (int kind = 0; kind < KindCount; ++kind) {
        m_labels[kind] = new QLabel(bar);
        m_labels[kind]->setTextFormat(Qt::PlainText);
        m_labels[kind]->setObjectName(QStringLiteral("statusFact%1").arg(kind));
        m_labels[kind]->hide();
        // The last one stands off the edge of a maximised window, which has no grip there.
        m_labels[kind]->setContentsMargins(labelGap, 0, kind == Listening ? labelGap : 0, 0);
        m_labels[kind]->setMinimumWidth(1); // long texts must not keep the window wide
        bar->addPermanentWidget(m_labels[kind]);
        m_labels[kind]->hide(); // adding shows it
    }
    bar->installEventFilter(this);
    refresh();
}

void StatusFacts::set(Kind kind, const QString &port, const QString &detail)
{
    m_facts[kind].insert(port, detail);
    refresh();
}

void StatusFacts::clear(Kind kind, const QString &port)
{
    m_facts[kind].remove(port);
    refresh();
}

void StatusFacts::replace(Kind kind, const QMap<QString, QString> &facts)
{
    if (facts == m_facts[kind])
        return;
    m_facts[kind] = facts;
    refresh();
}

QString StatusFacts::text(Kind kind) const
{
    if (m_facts[kind].isEmpty())
        return kind == Listening ? tr("Listening: no port") : QString();
    return translated(texts[kind].label).arg(ports(kind).join(QStringLiteral(", ")));
}

QString StatusFacts::explanation(Kind kind) const
{
    QStringList lines = {text(kind), translated(texts[kind].tip)};
    for (const QString &detail : m_facts[kind]) {
        if (!detail.isEmpty())
            lines.append(detail);
    }
    return lines.join(QLatin1Char('\n'));
}

QStringList StatusFacts::explanations() const
{
    QStringList all;
    for (int kind = 0; kind < KindCount; ++kind) {
        if (!text(static_cast<Kind>(kind)).isEmpty())
            all.append(explanation(static_cast<Kind>(kind)));
    }
    return all;
}

bool StatusFacts::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        refresh();
    return QObject::eventFilter(watched, event);
}

void StatusFacts::refresh()
{
    const int room = m_bar->width() * labelShare / 100;
    int told = 0;
    int needed = 0;
    for (int kind = 0; kind < KindCount; ++kind) {
        const QString whole = text(static_cast<Kind>(kind));
        told += whole.isEmpty() ? 0 : 1;
        needed += whole.isEmpty() ? 0 : labelGap + m_labels[kind]->fontMetrics().horizontalAdvance(whole);
    }
    const int widest = needed <= room ? room : std::max(room / told, narrowestLabel);
    for (int kind = 0; kind < KindCount; ++kind)
        show(static_cast<Kind>(kind), widest);
}

void StatusFacts::show(Kind kind, int widest)
{
    QLabel *label = m_labels[kind];
    const QString whole = text(kind);
    label->setText(label->fontMetrics().elidedText(whole, Qt::ElideRight, widest));
    label->setToolTip(plainToolTip(explanation(kind)));
    label->setAccessibleName(whole);
    label->setAccessibleDescription(explanation(kind));
    label->setVisible(!whole.isEmpty());
}
