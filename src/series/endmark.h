#pragma once

#include <limits>

class RecordList;

/// Where a recording says that the process has ended: the records with an end letter. For devices that send
/// none one is given, from the record on that has no current between two that have.
class EndMark {
public:
    /// Fewer records than these have no end mark.
    static constexpr int recordsForMark() { return 6; }
    /// The letter of a record that is marked.
    static constexpr char letter = 'E';

    /// Starts with a recording of this device code.
    void begin(int device);
    /// Looks at the newest of `records`.
    void addNewest(const RecordList &records);
    /// Looks at record `index`, which comes from a file.
    void addLoaded(const RecordList &records, int index);
    /// Goes on live where the `records` of a file have ended, of which there is at least one.
    void goOn(const RecordList &records);

    /// The first record that carries an end letter, -1 without.
    int first() const { return m_first; }
    /// Records from this one on carry the letter, whatever their device has sent.
    int markedFrom() const { return m_markedFrom; }

private:
    void note(int index);

    bool m_sendsLetter = true;
    int m_markedFrom = std::numeric_limits<int>::max();
    int m_first = -1;
};
