#pragma once

/// How long the status bar shows what it is told, in ms; others say so where they mean another time.
constexpr int usualMessageTime = 5000;
