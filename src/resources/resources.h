#pragma once

/// Makes ":/Icons/..." and ":/files/..." readable. The linker drops the resources of a static library that
/// nobody names, so the program and every test that shows a window call this first; once is enough, more is
/// harmless.
void initResources();
