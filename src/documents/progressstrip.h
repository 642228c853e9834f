#pragma once

#include <QObject>

#include <memory>

class InputGate;
class QProgressBar;
class QPushButton;
class QStatusBar;
class QTimer;

/// What takes longer, in the status bar: a bar and a Cancel button, shown after half a second. From the
/// beginning on input reaches nothing else.
class ProgressStrip : public QObject {
    Q_OBJECT

public:
    /// `bar` outlives this.
    explicit ProgressStrip(QStatusBar *bar);
    ~ProgressStrip() override;

    /// Something begins; each one is ended. Several may be under way.
    void begin();
    void end();
    /// How far the newest is, 0 to 1.
    void setProgress(double part);

signals:
    /// All of it is to be given up.
    void cancelled();

private slots:
    void show();

private:
    std::unique_ptr<InputGate> m_gate; ///< while something is under way
    QTimer *m_patience; ///< until something is shown
    QProgressBar *m_progress;
    QPushButton *m_cancel;
    int m_underWay = 0;
};
