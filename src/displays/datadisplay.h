#pragma once

#include "data/varnel3data.h"
#include "displays/datafigures.h"
#include "widgets/spoken.h"

#include <QDateTime>
#include <QWidget>

class QGridLayout;
class QLabel;
class RefreshGate;
class ViewState;

/// Small window, always on top, with the newest figures of one device in a size that is read from across the
/// room, and a table of its cells. Follows the statistics switch and the per-cell quantity of the view state.
class DataDisplay : public QWidget, public Spoken {
    Q_OBJECT

public:
    explicit DataDisplay(QWidget *parent = nullptr);

    /// `state` is not owned and outlives this.
    void setViewState(ViewState *state);
    /// Dims the figures while `since` is valid: no line has come since then.
    void setStaleSince(const QDateTime &since);
    QString spokenText() const override; ///< title and figures with their units
    void setVisible(bool visible) override;

public slots:
    /// Shows `record` of graph window `nrWin`, -1 for none. `useKeptRi`: the resistance panel
    /// shows the values of the record that reached it last. While hidden only the newest
    /// record is kept, and shown on opening.
    void updateData(Varnel3Data &record, int nrWin, bool useKeptRi = false);
    /// Part of the interface; the resistances come with the record.
    void updateRic() { }
    /// Toggles between pack voltage and mean cell voltage.
    void onClikVoltage();
    /// Empties the display.
    void clear();

signals:
    /// The user has closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void refresh();
    void onViewChanged();

private:
    void build();
    void createLabels();
    void createCellTable();
    void createWindowNumber();
    void createLayout();
    double pointsOf(int points) const;
    void fitFigures();
    void showFigures();
    void showWindowNumber();
    QGridLayout *captionPair(DataFigures::Item upper, DataFigures::Item lower);

    ViewState *m_viewState = nullptr; // not owned, outlives this
    RefreshGate *m_gate;
    DataFigures m_figures;
    Varnel3Data m_record;
    CellResistances m_resistances{};
    bool m_hasRecord = false;
    int m_windowNumber = -1;
    QDateTime m_staleSince;

    int m_fontScale = 100; // per cent of the nominal sizes
    QLabel *m_labels[DataFigures::itemCount] = {};
    QLabel *m_cellNames[DataFigures::cellSlots] = {};
    QLabel *m_cellValues[DataFigures::cellSlots] = {};
    QLabel *m_windowNumberLabel = nullptr;
};
