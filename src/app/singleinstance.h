#pragma once

#include <QObject>
#include <QString>

#include <memory>

class QLocalServer;
class QLockFile;

/// One program a user and settings file: the first one serves, a later one hands its files over and leaves.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// Socket and lock lie in the user's runtime folder, under a name made from `identity`.
    explicit SingleInstance(const QString &identity, QObject *parent = nullptr);
    ~SingleInstance() override;

    enum class Role {
        First, ///< serves from now on
        HandedOver, ///< the first one has taken the files; this one leaves
        Unanswered ///< there is a first one, but it neither answered nor left within 10 s
    };

    /// Finds the role of this start; `files` (absolute paths, may be empty) go to the first
    /// one where there is one. One that is just leaving takes nothing more: this start waits
    /// for it to be gone and takes its place.
    Role settle(const QStringList &files);

public slots:
    /// Answers no more starts: the program is leaving. Its place is free when it has gone.
    void retire();

signals:
    /// Another start of the program wants this one in front, with `files` opened.
    void called(const QStringList &files);

private slots:
    void onConnection();
    void onReadyRead();

private:
    bool claim();
    bool handOver(const QStringList &files) const;

    QString m_path; ///< of the socket
    std::unique_ptr<QLockFile> m_lock;
    QLocalServer *m_server;
};
