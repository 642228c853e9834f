#pragma once

#include "graph/graphnote.h"
#include "graph/graphtitle.h"
#include "graph/plot/graphpainter.h"
#include "graph/scene/graphrequest.h"
#include "graph/titletip.h"
#include "link/recordingwindow.h"
#include "series/seriesstore.h"
#include "widgets/spoken.h"

#include <QWidget>

class DeviceLink;
class GraphInteraction;
class GraphHost;
class RefreshGate;

/// The graph window of one recording: owns its records, draws their course, keeps its title in step with what
/// was saved, and hands each record to the shell while it is the current window.
class MdiGraphChild : public QWidget, public RecordingWindow, public Spoken {
    Q_OBJECT

public:
    /// `host` outlives the window.
    explicit MdiGraphChild(GraphHost *host, QWidget *parent = nullptr);
    ~MdiGraphChild() override;

    const SeriesStore &store() const { return m_store; }
    /// Number on the badge and in everything that the window tells; 0 until it is given one.
    int windowNumber() const { return m_windowNumber; }
    void setWindowNumber(int number);
    /// What of the records is saved, and where they come from.
    QString portName() const { return m_title.portName(); }
    QString sourceName() const { return m_title.source(); }
    bool hasUnsavedData() const { return m_title.isUnsaved(); }
    /// A device feeds the window.
    bool isLive() const { return m_reader != nullptr; }
    /// The device that feeds the window; null when there is none.
    DeviceLink *reader() const { return m_reader; }
    /// Tells the feeding device to stop its process; false when there is none.
    bool stopProcess();
    const CellSelection &selectedCells() const;
    void setSelectedCells(const CellSelection &cells);
    /// Shows the newest record in the figures, if this window is current and has one.
    void showNewest();

    /// Takes over what was read from `fileName`. Nothing is unsaved, and records of more
    /// than one are shown in the figures.
    void load(SeriesStore store, const QString &fileName);
    /// The first `records` now stand in `fileName`.
    void markSaved(const QString &fileName, int records);
    /// Since when its device has been silent; invalid while it has not.
    QDateTime silentSince() const { return m_note.silentSince(); }
    /// Tells that the device has been silent since `since`; an invalid time takes it back.
    void setSilentSince(const QDateTime &since);
    /// A line for the tool tip of the title, below how the process has ended.
    void setTitleTip(const QString &text) { m_titleTip.setLine(text); }
    /// What the title's tool tip says: how the process has ended, and that line.
    QString titleTip() const { return m_titleTip.text(); }
    QString spokenText() const override; ///< number, source, process, pack and voltage
    /// What the window shows, at any size. Valid as long as the window.
    GraphRequest request(const QSize &pictureSize) const;

    // RecordingWindow
    void attachReader(DeviceLink *reader) override;
    void setPortName(const QString &port) override;
    void addRecord(const Varnel3Data &record) override;
    void applyResistanceLine(const QByteArray &line) override;
    void finishRecording() override;

    QSize sizeHint() const override;
    /// The factor by which letters and all that lies around them are enlarged, as far as there is room.
    void setScale(double scale);

signals:
    /// After each record: mAh now, mode letter, mAh at the end mark, window number.
    void updateCapacitySignal(int energyNow, char mode, int energyAtMark, int number);
    void updateVoltageSignal();
    void selectedCellsChanged();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;

private slots:
    void showRecordAt(int record);

private:
    void connectParts();
    bool keep(const Varnel3Data &record);
    void scheduleRepaint();

    GraphHost *m_host; // not owned, outlives this
    DeviceLink *m_reader = nullptr; // not owned; forgotten by finishRecording() before it goes
    SeriesStore m_store;
    GraphPainter m_painter;
    GraphInteraction *m_interaction; // a child of this
    RefreshGate *m_gate; // a child of this
    GraphTitle m_title;
    TitleTip m_titleTip;
    GraphNote m_note;
    int m_windowNumber = 0;
    double m_scale = 1.0; // wanted
};
