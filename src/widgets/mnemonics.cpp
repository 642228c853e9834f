#include "widgets/mnemonics.h"

#include <QKeySequence>
#include <QMenu>
#include <QVector>

#include <algorithm>

namespace {

/// Finds letters for texts so that as many as possible have one: a text may take another one's letter where
/// that finds a different one.
class Letters {
public:
    explicit Letters(const QStringList &texts)
        : m_texts(texts)
    {
        for (const QString &text : texts)
            m_candidates.append(candidates(text));
        for (int i = 0; i < texts.size(); ++i) {
            m_asked.clear();
            if (!texts[i].contains(QLatin1Char('&')) && !findFree(i))
                find(i);
        }
    }

    /// By numbers of texts; one that has no letter is not there.
    const QHash<int, int> &places() const { return m_places; }

private:
    // Beginnings of words first; letters that stand there already are nobody else's.
    QVector<int> candidates(const QString &text) const
    {
        QVector<int> starts;
        QVector<int> others;
        for (int i = 0; i < text.size(); ++i) {
            const bool isKept = std::any_of(m_texts.begin(), m_texts.end(), [&](const QString &other) {
                return QKeySequence::mnemonic(other) == QKeySequence(Qt::ALT | text[i].toUpper().unicode());
            });
            if (text[i].isLetterOrNumber() && !isKept)
                (i == 0 || text[i - 1].isSpace() ? starts : others).append(i);
        }
        return starts + others;
    }

    bool findFree(int text)
    {
        for (const int place : qAsConst(m_candidates[text])) {
            const QChar letter = m_texts[text][place].toUpper();
            if (m_owners.contains(letter))
                continue;
            m_owners[letter] = text;
            m_places[text] = place;
            return true;
        }
        return false;
    }

    bool find(int text)
    {
        for (const int place : qAsConst(m_candidates[text])) {
            const QChar letter = m_texts[text][place].toUpper();
            if (m_asked.contains(letter))
                continue;
            m_asked.append(letter);
            const int owner = m_owners.value(letter);
            if (m_owners.contains(letter) && !findFree(owner) && !find(owner))
                continue;
            m_owners[letter] = text;
            m_places[text] = place;
            return true;
        }
        return false;
    }

    const QStringList &m_texts;
    QVector<QVector<int>> m_candidates;
    QHash<int, int> m_places;
    QHash<QChar, int> m_owners;
    QVector<QChar> m_asked;
};

} // namespace

QStringList withMnemonics(const QStringList &texts)
{
    const Letters letters(texts);
    const QHash<int, int> &places = letters.places();
    QStringList given = texts;
    for (auto place = places.begin(); place != places.end(); ++place)
        given[place.key()].insert(place.value(), QLatin1Char('&'));
    return given;
}

MenuMnemonics::MenuMnemonics(QMenu *menu)
    : QObject(menu)
    , m_menu(menu)
{
    connect(menu, SIGNAL(aboutToShow()), this, SLOT(give()));
    connect(menu, SIGNAL(aboutToHide()), this, SLOT(takeBack()));
}

void MenuMnemonics::give()
{
    QStringList texts;
    QList<QAction *> named;
    const QList<QAction *> actions = m_menu->actions();
    for (QAction *action : actions) {
        if (action->isSeparator())
            continue;
        named.append(action);
        texts.append(action->text());
    }
    const QStringList given = withMnemonics(texts);
    for (int i = 0; i < named.size(); ++i) {
        if (given[i] == texts[i])
            continue;
        m_texts.insert(named[i], {texts[i], given[i]});
        named[i]->setText(given[i]);
    }
}

// One that has another name by now keeps that.
void MenuMnemonics::takeBack()
{
    const QList<QAction *> actions = m_menu->actions();
    for (QAction *action : actions) {
        const auto text = m_texts.constFind(action);
        if (text != m_texts.constEnd() && action->text() == text->given)
            action->setText(text->before);
    }
    m_texts.clear();
}
