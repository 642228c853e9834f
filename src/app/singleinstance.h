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

    /// Whether this is the first one, which serves from now on.
    bool claim();
    /// Hands `files` (absolute paths, may be empty) to the first one. False when that does not answer.
    bool handOver(const QStringList &files) const;

signals:
    /// Another start of the program wants this one in front, with `files` opened.
    void called(const QStringList &files);

private slots:
    void onConnection();
    void onReadyRead();

private:
    QString m_path; ///< of the socket
    std::unique_ptr<QLockFile> m_lock;
    QLocalServer *m_server;
};
