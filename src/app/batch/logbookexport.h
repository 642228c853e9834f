#pragma once

class QString;

/// Writes the user's logbook, brought up to date with the files first, as comma-separated values to
/// `output`; "-" is standard output. Empty when it was written, else what kept it from that. `notice`: what
/// is to be said of the logbook all the same, as that it can't be kept; mostly empty.
QString exportLogbook(const QString &output, QString *notice);
