#pragma once

#include "files/filestamp.h"

#include <QCoreApplication>
#include <QIODevice>
#include <QString>

#include <memory>

/// A regular file that is opened and read ahead by a thread of its own, so that a network or a disk that does
/// not answer keeps nobody waiting who asks isReady() first. Open from the beginning on; what goes wrong with
/// the file is told by read().
class BackgroundFile : public QIODevice {
    Q_DECLARE_TR_FUNCTIONS(DataFileLoader)

public:
    explicit BackgroundFile(const QString &fileName);
    /// Does not wait: a thread that hangs in the system is left to itself.
    ~BackgroundFile() override;

    /// The next read() does not wait: bytes, the end or an error are there.
    bool isReady() const;
    /// Waits for that for up to `milliseconds`.
    void waitReady(int milliseconds) const;
    bool isSequential() const override { return true; }
    /// Bytes of the file; 0 until it is open.
    qint64 size() const override;
    FileStamp stamp() const; ///< of the file as it was opened

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    struct Shared;

    static void run(const std::shared_ptr<Shared> &shared, const QString &fileName);

    std::shared_ptr<Shared> m_shared; // with the thread
    QByteArray m_chunk; // what read() takes from
    int m_taken = 0; // of it
};
