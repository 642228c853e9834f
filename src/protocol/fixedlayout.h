#pragma once

#include "protocol/fieldtext.h"

class Varnel3Data;

/// The quick way for what the program itself writes: a "Varnel 3" line in which every field has its
/// usual width, the time that or more, and every number is plain digits. False, with the record
/// untouched, for any other line, be it good or bad.
bool parseFixedLayout(Varnel3Data &record, const FieldText &line);
