#pragma once

class QString;

/// Whether Windows makes a file of this name, without its folder, that is found again under it. "COM3.acp" is
/// a port there, "Pack 12:30.acp" a hidden part of the file "Pack 12".
bool isNameForWindows(const QString &name);
