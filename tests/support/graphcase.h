#pragma once

#include "graph/scene/graphrequest.h"
#include "series/seriesstore.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <functional>

/// Records made from a few words. The first one is their number; they are of a pack of three cells that is
/// being charged, one a minute: the voltage rises by 10 mV each and the charge by 100 mAh, the rest stands
/// still. FIELD=VALUE changes all of them, FIELD@INDEX=VALUE one, FIELD@FIRST-LAST=VALUE some; "period" are
/// the seconds since the one before, "start" those of the first.
inline RecordList recordsOf(const QString &words)
{
    static const QHash<QString, int Varnel3Data::*> fields{{"voltage", &Varnel3Data::voltage},
        {"current", &Varnel3Data::current}, {"mode", &Varnel3Data::mode}, {"energy", &Varnel3Data::energy},
        {"temperature", &Varnel3Data::temperature}, {"resistance", &Varnel3Data::internalResistance},
        {"cells", &Varnel3Data::cellCount}, {"type", &Varnel3Data::cellType}, {"min", &Varnel3Data::cellMin},
        {"max", &Varnel3Data::cellMax}, {"balancing", &Varnel3Data::ballansingCurrent},
        {"device", &Varnel3Data::device}};
    static const QHash<QString, int CellData::*> cellFields{
        {"v", &CellData::voltage}, {"balance", &CellData::balance}, {"charge", &CellData::balanceCharge}};
    static const QRegularExpression change("^(\\w+?)(\\d*)(?:@(\\d+)(?:-(\\d+))?)?=(-?\\d+)$");
    const QStringList all = words.split(' ', Qt::SkipEmptyParts);
    RecordList records;
    for (int i = 0, time = 0; i < all[0].toInt(); ++i) {
        Varnel3Data record;
        record.device = Varnel3Data::Varnel3;
        record.mode = Varnel3Data::Charge;
        record.voltage = 11400 + 10 * i;
        record.current = 2500;
        record.energy = 100 * i;
        record.temperature = 253;
        record.internalResistance = 40;
        record.flag5 = 'B';
        record.cellType = 5;
        record.cellCount = 3;
        for (int cell = 0; cell < Varnel3Data::maxCells; ++cell)
            record.cells[cell].voltage = 3790 + 10 * cell;
        record.cellMax = 3810;
        record.cellAverage = 3800;
        record.cellMin = 3790;
        int period = 60;
        for (const QString &word : all) {
            const QRegularExpressionMatch match = change.match(word);
            const int first = match.captured(3).toInt();
            const int last = match.captured(4).isEmpty() ? first : match.captured(4).toInt();
            if (!match.hasMatch() || (!match.captured(3).isEmpty() && (i < first || i > last)))
                continue;
            const QString field = match.captured(1);
            const int value = match.captured(5).toInt();
            CellData &cell = record.cells[match.captured(2).toInt() % Varnel3Data::maxCells];
            if (fields.contains(field))
                record.*fields[field] = value;
            else if (cellFields.contains(field))
                cell.*cellFields[field] = value;
            else if (field == "r")
                cell.resistance = (record.resistanceValid = value) ? value : 0;
            else if (field == "celldata")
                record.flag5 = value ? 'B' : '_';
            else if (field == "period")
                period = value;
            else if (field == "start" && i == 0)
                time = value;
        }
        time += i > 0 ? period : 0;
        record.setTime(time);
        records.append(record);
    }
    return records;
}

/// A store of a file's recordsOf() these words.
inline SeriesStore storeOf(const QString &words)
{
    SeriesStore store;
    store.load(recordsOf(words));
    return store;
}

/// A graph of recordsOf() these words, some of which stand for what is asked; without them it is the default
/// on 500x300 pixels.
class GraphCase {
public:
    explicit GraphCase(const QString &words)
    {
        const RecordList records = recordsOf(words);
        for (int i = 0; i < records.size(); ++i)
            m_store.append(records[i]);
        m_request.store = &m_store;
        m_request.size = QSize(500, 300);
        m_request.windowNumber = 3;
        const QStringList all = words.split(' ', Qt::SkipEmptyParts);
        for (const QString &word : all)
            ask(word.section('=', 0, 0), word.section('=', 1).split(','));
    }

    const GraphRequest &request() const { return m_request; }

private:
    void ask(const QString &word, const QStringList &values)
    {
        ViewSwitches &switches = m_request.switches;
        const auto number = [&](int i) { return values.value(i).toInt(); };
        const Interval whole = {0, 60.0 * (m_store.size() - 1)};
        const QHash<QString, std::function<void()>> words{
            {"white", [&] { switches.blackBackground = false; }},
            {"distinct", [&] { switches.distinctLines = true; }},
            {"B", [&] { switches.balancer = true; }},
            {"Avg", [&] { switches.balancer = switches.average = true; }},
            {"T", [&] { switches.temperature = number(0); }},
            {"Rw", [&] { switches.resistance = number(0); }},
            {"delta", [&] { switches.rightAxis = RightAxis(number(0)); }},
            {"select", [&] { switches.cellsShown = CellsShown(number(0)); }},
            {"quantity", [&] { switches.cellValue = CellValue(number(0)); }},
            {"picked", [&] { m_request.selectedCells[size_t(number(0))] = true; }},
            {"size", [&] { m_request.size = QSize(number(0), number(1)); }},
            {"scale", [&] { m_request.scale = values[0].toDouble(); }},
            {"number", [&] { m_request.windowNumber = number(0); }},
            {"ranged", [&] { m_request.rangedRecords = number(0); }},
            {"note", [&] { m_request.note = values[0]; }},
            {"cursor", [&] { m_request.cursorRecord = number(0); }},
            {"marked", [&] { m_request.markedRecord = number(0); }},
            {"band", [&] { m_request.rubberBand = QRect(number(0), number(1), number(2), number(3)); }},
            {"zoomUpper", [&] { zoom(PlotArea::Upper, values, whole); }},
            {"zoomLower", [&] { zoom(PlotArea::Lower, values, whole); }},
        };
        words.value(word, [] {})();
    }

    void zoom(PlotArea area, const QStringList &values, const Interval &whole)
    {
        m_request.zoom.show({values[0].toDouble(), values[1].toDouble()}, area,
            {values[2].toDouble(), values[3].toDouble()}, whole);
    }

    SeriesStore m_store;
    GraphRequest m_request;
};
