#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// The languages that the program's texts are to be had in. Numbers and dates follow the system, whatever
/// language is chosen.
struct Language {
    QString code; ///< "de"
    QString name; ///< in the language itself

    /// All of them, English first.
    static const QVector<Language> &all();
    static bool isKnown(const QString &code);
    /// The code of the first of `wishes` ("de", "de-AT", "pl_PL") that is known; English where none is.
    static QString bestOf(const QStringList &wishes);
    /// The code of what the user wants: by the command line, else by the preferences, else by the system.
    /// An empty or unknown `word` and such a preference choose nothing.
    static QString chosen(const QString &word, const QString &preference);
};
