#pragma once

#include <QObject>
#include <QString>

#include <memory>

class PlaceLock;
class QLocalServer;

/// One program a user and settings file: the first one serves, a later one hands its files over and leaves.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// The lock lies in a folder of the user's alone, under a name made from `identity`; so does the server's
    /// socket, where it is a file. Without such a folder nobody meets.
    explicit SingleInstance(const QString &identity, QObject *parent = nullptr);
    ~SingleInstance() override;

    enum class Role {
        First, ///< serves from now on
        HandedOver, ///< the first one has taken the files; this one leaves
        Unanswered ///< there is a first one, but it neither answered nor left within 10 s
    };

    /// Finds the role of this start; `files` (absolute paths, may be empty, 16 MB of UTF-8 at most) go to the
    /// first one where there is one. One that is just leaving takes nothing more: this start waits for it to
    /// give its place back and takes that.
    Role settle(const QStringList &files);
    /// Number of the process that has the place; 0 when that is not known.
    qint64 holder() const;
    /// Gives the place back: the next start need not wait for this program to be gone.
    void giveBack();

public slots:
    /// Answers no more starts: the program is leaving. Its place stays taken until giveBack().
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

    QString m_serverName; ///< empty where there is no folder for the place
    std::unique_ptr<PlaceLock> m_lock;
    QLocalServer *m_server;
};
