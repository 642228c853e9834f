#include "logbook/window/filterline.h"

#include "data/varnel3data.h"
#include "widgets/displayscale.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QStyle>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int clearSpace = 40; // px beside the filter's words, with the button that clears them

} // namespace

FilterLine::FilterLine(QWidget *parent)
    : QWidget(parent)
    , m_line(new QHBoxLayout)
    , m_days(new QHBoxLayout)
    , m_text(new QLineEdit(this))
    , m_chemistry(new QComboBox(this))
    , m_process(new QComboBox(this))
    , m_fromBox(new QCheckBox(tr("From"), this))
    , m_from(createDate(m_fromBox, QDate::currentDate().addYears(-1), tr("First day of the recordings")))
    , m_toBox(new QCheckBox(tr("To"), this))
    , m_to(createDate(m_toBox, QDate::currentDate(), tr("Last day of the recordings")))
{
    m_text->setObjectName(QStringLiteral("filterText"));
    m_text->setPlaceholderText(tr("Filter: words of any column"));
    m_text->setClearButtonEnabled(true);
    m_text->setToolTip(
        tr("Shows the recordings that have all of these words somewhere. Esc shows all again."));
    m_text->setAccessibleName(tr("Filter"));
    fillBoxes();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addLayout(m_line);
    layout->addLayout(m_days);
    m_days->setAlignment(Qt::AlignRight);
    m_line->addWidget(m_text); // takes what the others leave
    m_line->addWidget(m_chemistry);
    m_line->addWidget(m_process);
    placeDays();
    connect(m_text, SIGNAL(textChanged(QString)), this, SLOT(onText()));
    connect(m_chemistry, SIGNAL(currentIndexChanged(int)), this, SLOT(onChanged()));
    connect(m_process, SIGNAL(currentIndexChanged(int)), this, SLOT(onChanged()));
}

// A widget goes from one layout to the other when it is added there.
void FilterLine::placeDays()
{
    const QWidget *const others[] = {m_chemistry, m_process, m_fromBox, m_from, m_toBox, m_to};
    int wanted = m_text->fontMetrics().horizontalAdvance(m_text->placeholderText()) + scaled(clearSpace);
    for (const QWidget *widget : others)
        wanted += widget->sizeHint().width() + m_line->spacing();
    QHBoxLayout *line = width() < wanted ? m_days : m_line;
    if (std::exchange(m_place, line) == line)
        return;
    for (QWidget *widget : {static_cast<QWidget *>(m_fromBox), static_cast<QWidget *>(m_from),
             static_cast<QWidget *>(m_toBox), static_cast<QWidget *>(m_to)})
        line->addWidget(widget);
}

void FilterLine::resizeEvent(QResizeEvent *)
{
    placeDays();
}

void FilterLine::fillBoxes()
{
    m_chemistry->setObjectName(QStringLiteral("filterChemistry"));
    m_chemistry->setToolTip(tr("Recordings of cells of this chemistry"));
    m_chemistry->setAccessibleName(tr("Chemistry"));
    m_chemistry->addItem(tr("Any chemistry"), LogbookFilter::any);
    for (int type = 0; type < Varnel3Data::noCellType; ++type)
        m_chemistry->addItem(Varnel3Data::cellTypeName(type), type);
    m_process->setObjectName(QStringLiteral("filterProcess"));
    m_process->setToolTip(tr("Recordings of this process"));
    m_process->setAccessibleName(tr("Process"));
    m_process->addItem(tr("Any process"), LogbookFilter::any);
    for (int mode = 0; mode < Varnel3Data::NoMode; ++mode)
        m_process->addItem(Varnel3Data::modeName(mode), mode);
}

// A date has four digits of its year: which century is meant must be seen.
QDateEdit *FilterLine::createDate(QCheckBox *box, const QDate &date, const QString &tip)
{
    auto *edit = new QDateEdit(date, this);
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    edit->setDisplayFormat(format);
    edit->setCalendarPopup(true);
    edit->setEnabled(false);
    box->setToolTip(tip);
    edit->setToolTip(tip);
    edit->setAccessibleName(tip);
    connect(box, SIGNAL(toggled(bool)), edit, SLOT(setEnabled(bool)));
    connect(box, SIGNAL(toggled(bool)), this, SLOT(onChanged()));
    connect(edit, SIGNAL(dateChanged(QDate)), this, SLOT(onChanged()));
    return edit;
}

LogbookFilter FilterLine::filter() const
{
    LogbookFilter filter;
    filter.text = m_text->text();
    filter.cellType = m_chemistry->currentData().toInt();
    filter.mode = m_process->currentData().toInt();
    if (m_fromBox->isChecked())
        filter.from = m_from->date();
    if (m_toBox->isChecked())
        filter.to = m_to->date();
    return filter;
}

bool FilterLine::isEmpty() const
{
    return m_text->text().isEmpty() && m_chemistry->currentIndex() == 0 && m_process->currentIndex() == 0
        && !m_fromBox->isChecked() && !m_toBox->isChecked();
}

void FilterLine::clear()
{
    m_isClearing = true;
    m_text->clear();
    m_chemistry->setCurrentIndex(0);
    m_process->setCurrentIndex(0);
    m_fromBox->setChecked(false);
    m_toBox->setChecked(false);
    m_isClearing = false;
    emit changed();
}

void FilterLine::takeKeyboard()
{
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

// A style sheet gives what is said in place of a text the colour of the text.
void FilterLine::onText()
{
    m_text->style()->unpolish(m_text);
    m_text->style()->polish(m_text);
    onChanged();
}

void FilterLine::onChanged()
{
    if (!m_isClearing)
        emit changed();
}
