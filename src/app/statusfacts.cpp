#include "app/statusfacts.h"

#include <QCoreApplication>
#include <QLabel>
#include <QStatusBar>

namespace {

constexpr int widestLabel = 190; // pixels; longer lists of ports are elided, the tool tip has them all

struct KindText {
    const char *label;
    const char *tip;
};

const KindText texts[StatusFacts::KindCount] = {
    {QT_TRANSLATE_NOOP("StatusFacts", "Lost: %1"),
        QT_TRANSLATE_NOOP(
            "StatusFacts", "The device or its adapter went away. Listening goes on when it is back.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Can't open: %1"),
        QT_TRANSLATE_NOOP("StatusFacts", "These ports could not be opened.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Paused: %1"),
        QT_TRANSLATE_NOOP("StatusFacts", "Recording is paused. Press Recording to go on.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "No data: %1"),
        QT_TRANSLATE_NOOP("StatusFacts", "The device has sent no line for a while.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Window closed: %1"),
        QT_TRANSLATE_NOOP(
            "StatusFacts", "The graph window was closed. A window opens again with the next process.")},
    {QT_TRANSLATE_NOOP("StatusFacts", "Not on disk: %1"),
        QT_TRANSLATE_NOOP("StatusFacts",
            "The journal's disk takes no more. Lines wait in memory and are written as soon as it does.")},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("StatusFacts", text);
}

} // namespace

StatusFacts::StatusFacts(QStatusBar *bar)
    : QObject(bar)
{
    for (int kind = 0; kind < KindCount; ++kind) {
        m_labels[kind] = new QLabel(bar);
        m_labels[kind]->setObjectName(QStringLiteral("statusFact%1").arg(kind));
        m_labels[kind]->hide();
        bar->addPermanentWidget(m_labels[kind]);
        m_labels[kind]->hide(); // adding shows it
    }
}

void StatusFacts::set(Kind kind, const QString &port, const QString &detail)
{
    m_facts[kind].insert(port, detail);
    refresh(kind);
}

void StatusFacts::clear(Kind kind, const QString &port)
{
    if (m_facts[kind].remove(port) > 0)
        refresh(kind);
}

void StatusFacts::replace(Kind kind, const QMap<QString, QString> &facts)
{
    if (facts == m_facts[kind])
        return;
    m_facts[kind] = facts;
    refresh(kind);
}

QString StatusFacts::text(Kind kind) const
{
    if (m_facts[kind].isEmpty())
        return QString();
    return translated(texts[kind].label).arg(ports(kind).join(QStringLiteral(", ")));
}

void StatusFacts::refresh(Kind kind)
{
    QLabel *label = m_labels[kind];
    const QString whole = text(kind);
    QStringList tip = {whole, translated(texts[kind].tip)};
    for (const QString &detail : std::as_const(m_facts[kind])) {
        if (!detail.isEmpty())
            tip.append(detail);
    }
    label->setText(label->fontMetrics().elidedText(whole, Qt::ElideRight, widestLabel));
    label->setToolTip(tip.join(QLatin1Char('\n')));
    label->setVisible(!whole.isEmpty());
}
