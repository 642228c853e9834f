#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace sim {

/// Tells when somebody opens or closes one of the device nodes it watches.
class OpenWatch : public QObject {
    Q_OBJECT

public:
    /// One for all the endpoints of a process: the system grants each user only
    /// some. Lives while anyone holds it.
    static std::shared_ptr<OpenWatch> shared();
    ~OpenWatch() override;

    /// Watches `path`; the number that changed() names it by, or -1 when the system can't.
    int add(const QByteArray &path);
    void remove(int id);

public slots:
    /// Reports what has happened until now.
    void poll();

signals:
    void changed(int id, int openings); ///< openings: 1 opened, -1 closed

private:
    OpenWatch();

    int m_queue = -1;
};

} // namespace sim
