#pragma once

class QString;

/// Has the application speak `language` (a code of Language) from now on; what shows its texts already keeps
/// them. Needs an application object, and again the next one, should there be two.
void installLanguage(const QString &language);
