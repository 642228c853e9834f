#pragma once

#include <QByteArray>
#include <QString>

/// Cuts `total` and `available` bytes of memory down to what control groups leave: those that `membership`
/// names, in the form of /proc/self/cgroup (versions 1 and 2), and all groups above them. `root` is the
/// folder that the groups lie in. What a group holds of files counts as available, since it gives that up
/// first.
void narrowToGroups(qint64 *total, qint64 *available, const QByteArray &membership, const QString &root);
