#pragma once

#include <string>

class QString;

/// `fileName` as Windows' own calls take it, of any length.
std::wstring nativeName(const QString &fileName);
