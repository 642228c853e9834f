#include "settings/language.h"

#include <QLocale>

#include <algorithm>

const QVector<Language> &Language::all()
{
    static const QVector<Language> languages = {{QStringLiteral("en"), QStringLiteral("English")},
        {QStringLiteral("pl"), QStringLiteral("Polski")}, {QStringLiteral("de"), QStringLiteral("Deutsch")}};
    return languages;
}

bool Language::isKnown(const QString &code)
{
    return std::any_of(
        all().begin(), all().end(), [&code](const Language &language) { return language.code == code; });
}

QString Language::bestOf(const QStringList &wishes)
{
    for (const QString &wish : wishes) {
        const QString code
            = QString(wish).replace(QLatin1Char('_'), QLatin1Char('-')).section(QLatin1Char('-'), 0, 0);
        if (isKnown(code.toLower()))
            return code.toLower();
    }
    return all().first().code;
}

QString Language::chosen(const QString &word, const QString &preference)
{
    QStringList wishes = {word, preference};
    wishes += QLocale::system().uiLanguages();
    return bestOf(wishes);
}
