#pragma once

#include <QString>

#include <memory>

// Where the one program a user and settings file has its place, as the system sees it.

/// A folder that nobody but this user can write to or look into, made where it is missing; empty when there
/// is none to be had.
QString ownFolder();

/// What a local server in `folder`, which ownFolder() names, is called for the place `place`, as the system
/// takes it.
QString serverName(const QString &folder, const QString &place);

/// Lets `process` (0: any) raise its windows, which otherwise only the program that the user has just dealt
/// with may.
void letComeForward(qint64 process);

/// Whether the process at the far end of a connected local socket is this user's.
bool isOwnPeer(qintptr socketDescriptor);

/// Held by one program at a time; free again when that gives it back or ends, however it ends.
class PlaceLock {
public:
    explicit PlaceLock(const QString &fileName);
    ~PlaceLock();

    enum class Outcome {
        Held,
        Taken, ///< by another program
        Impossible ///< there is nothing to lock
    };
    Outcome take();
    void giveBack();
    /// Number of the process that holds it; 0 when that is not known.
    qint64 holder() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
