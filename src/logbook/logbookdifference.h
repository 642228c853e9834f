#pragma once

#include "logbook/logbookbatch.h"

/// The change of packs and rows that makes a logbook that holds `held` hold `content`, which another program
/// has left in its file. Rows keep their ids and what is known of them only here: that they are live, or that
/// their file has gone.
LogbookBatch logbookDifference(const LogbookContent &held, const LogbookContent &content);
