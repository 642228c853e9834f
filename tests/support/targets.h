#pragma once

#include "devices/devicetargets.h"
#include "link/serialreader.h"
#include "support/ptypair.h"
#include "support/fakeshell.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <vector>

/// Devices on real lines, the test at their far ends, without windows or preferences.
class TestTargets : public DeviceTargets {
public:
    TestTargets() { qputenv("VARNEL_PORT_DIR", QFile::encodeName(folder.path())); }
    ~TestTargets() override { clear(); }

    /// Listens on one more port, "COM1" first.
    void add()
    {
        lines.push_back(
            std::make_unique<PtyPair>(folder.path(), QStringLiteral("COM%1").arg(lines.size() + 1)));
        m_readers.push_back(std::make_unique<SerialReader>(nullptr, lines.back()->portName(), &host));
        m_readers.back()->start();
    }
    void remove(size_t index) { m_readers.erase(m_readers.begin() + int(index)); }
    void clear()
    {
        m_readers.clear();
        lines.clear();
    }
    SerialReader *reader(size_t index) const { return m_readers[index].get(); }
    /// What the device of the `index`th line has been sent since the last call.
    QByteArray heard(size_t index) const { return lines[index]->received(); }
    void say(size_t index, const QByteArray &bytes) { lines[index]->send(bytes); }

    QVector<SerialReader *> readers() const override
    {
        QVector<SerialReader *> all;
        for (const auto &reader : m_readers)
            all.append(reader.get());
        return all;
    }
    SerialReader *activeReader() const override { return active; }
    QString activePort() const override { return port; }
    bool stopActiveProcess() override
    {
        if (active)
            active->sendCommand(QStringLiteral("#STOP\r\n"));
        return active != nullptr;
    }

    FakeShell host;
    SerialReader *active = nullptr;
    QString port; ///< of the active window

private:
    QTemporaryDir folder;
    std::vector<std::unique_ptr<PtyPair>> lines;
    std::vector<std::unique_ptr<SerialReader>> m_readers;
};
