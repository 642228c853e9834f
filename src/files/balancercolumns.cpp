#include "files/balancercolumns.h"

#include "data/saturated.h"
#include "data/varnel3data.h"

namespace {

// Per cent to the character that stands for it; what is none becomes a letter, which reads as 0.
char balanceCharacter(int balance)
{
    const int code = '0' + balance / 10;
    return code >= '0' && code <= ':' ? char(code) : 'x';
}

} // namespace

int BalancerColumns::time() const
{
    return saturated(qint64(Varnel3Data::balancerPeriod) * (dataLines() - 1));
}

ColumnConverter::Outcome BalancerColumns::takeFourthLine(QLatin1String line)
{
    const std::optional<int> state
        = Field{reinterpret_cast<const uchar *>(line.data()), line.size()}.number();
    if (!state)
        return Outcome::Record;
    if (state < 1 || state > 3)
        return Outcome::BadLine;
    m_state = char('A' + *state);
    return Outcome::NoRecord;
}

int BalancerColumns::fieldsExpected() const
{
    return saturated(2 * qint64(header().cellCount));
}

bool BalancerColumns::takeField(int index, const Field &field)
{
    Pair unused;
    Pair &cell = index / 2 < pairs ? m_cells[index / 2] : unused;
    return field.toInt(index % 2 == 0 ? &cell.voltage : &cell.balance);
}

char *BalancerColumns::writeLine(char *out) const
{
    out = writeHead(out);
    *out++ = m_state;
    for (int i = 0; i < pairs; ++i) {
        if (i > 0)
            *out++ = ',';
        out = writeZeroFilled(out, m_cells[i].voltage, 4);
        *out++ = ',';
        *out++ = balanceCharacter(m_cells[i].balance);
    }
    return out;
}
