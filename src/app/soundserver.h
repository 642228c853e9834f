#pragma once

/// Whether it is worth asking for a device to play on: false where nothing says that this computer has one. Cheap and
/// silent, while the sound library would look for a server that is not there and complain on standard error each time.
bool maySound();
