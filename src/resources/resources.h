#pragma once

/// Makes ":/Icons/...", ":/files/..." and ":/translations/..." readable. The linker drops the resources of a
/// static library that nobody names, so the program and every test that shows a window call this first; once
/// is enough, more is harmless.
void initResources();
