#pragma once

#include "files/columnconverter.h"

/// The balancer's column format (".abp"): a pair a cell, voltage (mV) and balance (per cent), a line every
/// 5 s. Its lines become those of a "Tandor".
class BalancerColumns : public ColumnConverter {
public:
    BalancerColumns()
        : ColumnConverter(ColumnHeader::balancer)
    {
    }

    int time() const override;

protected:
    Outcome takeFourthLine(QLatin1String line) override;
    int fieldsExpected() const override;
    bool takeField(int index, const Field &field) override;
    char *writeLine(char *out) const override;

private:
    static constexpr int pairs = 12; // in a balancer's line, whatever the header says

    struct Pair {
        int voltage = 0; // mV
        int balance = 0; // per cent
    };

    Pair m_cells[pairs]; // those beyond the header's stay 0
    char m_state = 'C';
};
