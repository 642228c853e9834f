#pragma once

#include <QByteArrayList>
#include <QString>

namespace sim {

/// Lines of a text file in their order.
class LineReplay {
public:
    /// False with the reason in `error` when the file can't be read or holds no line.
    bool load(const QString &fileName, QString *error);
    void setLoop(bool loop) { m_loop = loop; }
    bool atEnd() const { return m_next >= m_lines.size(); }
    /// The next line with the devices' line end; not at the end.
    QByteArray next();
    void rewind() { m_next = 0; }

private:
    QByteArrayList m_lines;
    int m_next = 0;
    bool m_loop = false;
};

} // namespace sim
