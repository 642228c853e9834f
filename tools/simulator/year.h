#pragma once

#include <QDate>
#include <QString>

namespace sim {

/// Writes the discharges and charges of six packs in the year up to `last` into `folder`, each as the file
/// that a program would have made of the device's lines (of every tenth), named by its start and port and
/// last written at its end. The packs age, one of them (LiPo, 6 cells, on COM4) has a cell that fails. The
/// same `seed` gives the same year. Returns how many files there are; -1 with the reason in `error` when one
/// can't be written.
int writeYear(const QString &folder, quint32 seed, const QDate &last, QString *error);

} // namespace sim
