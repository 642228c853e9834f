#pragma once

class RecordList;

/// Where a recording says that the process has ended: the records with an end letter. Of devices that send
/// none they are marked, from the record on that has no current between two that have.
class EndMark {
public:
    /// Fewer records than these have no end mark.
    static constexpr int recordsForMark() { return 6; }

    /// Starts with a recording of this device code.
    void begin(int device);
    /// Marks the newest of `records`, and its predecessor, where that is due, and looks at them.
    void addNewest(RecordList *records);
    /// Looks at record `index`, which comes from a file.
    void addLoaded(const RecordList &records, int index);
    /// Goes on live where the `records` of a file have ended, of which there is at least one.
    void goOn(const RecordList &records);

    /// The first record that carries an end mark, -1 without.
    int first() const { return m_first; }

private:
    bool m_sendsLetter = true;
    bool m_isMarked = false; // all that come
    int m_first = -1;
};
