#pragma once

#include "files/columnconverter.h"

/// The charger's column format: time (s), voltage (V), current (A), temperature (deg C) and energy. Its
/// lines become those of a "Varnel 2+".
class ChargerColumns : public ColumnConverter {
public:
    ChargerColumns()
        : ColumnConverter(ColumnHeader::charger)
    {
    }

protected:
    int fieldsExpected() const override { return fieldCount; }
    bool takeField(int index, const Field &field) override;
    char *writeLine(char *out) const override;

private:
    static constexpr int fieldCount = 5;

    int m_values[fieldCount] = {}; // in the device's units
};
